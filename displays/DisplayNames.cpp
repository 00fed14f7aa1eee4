#include <qrtVistrelClasses4/DisplayNames.h>

#include "frame/Conversions.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

constexpr SignTypes kSignTypes[] = {
    {16, 25, "Kestrel"},
    {32, 41, "Solvane"},
    {48, 57, "Herald Single Color"},
    {64, 73, "DeskMate"},
    {80, 89, "Herald MultiColor"},
    {96, 103, "Other"},
    {104, 111, "One Line Finch"},
    {112, 121, "QMX"},
    {128, 137, "Tessel"},
    {144, 153, "ORN"},
    {160, 160, "ZR-7 - PhotoGleam"},
    {161, 161, "ZR-7 - ScrollLink"},
    {162, 162, "ZR-7 - PhotoTriad"},
    {163, 169, "ZR-7 - PhotoGleam"},
    {176, 177, "Meridian-HD"},
};
constexpr std::string_view kUnknownSignType = "Generic";

bool readsAsPlainNumber(const std::string& text) {
    constexpr std::string_view numbersStartWith = "-.0123456789";
    if (text.empty() || numbersStartWith.find(text.front()) == numbersStartWith.npos)
        return false;
    try {
        const auto number = ParseNumber(text);
        return number && NumberToText(*number) == text;
    } catch (const RuntimeError&) { // too large a number
        return false;
    }
}

} // namespace

std::string EscapeNumericName(const std::string& name) {
    return readsAsPlainNumber(name) ? "#" + name : name;
}

std::span<const SignTypes> NamedSignTypes() { return kSignTypes; }

std::string_view SignTypeName(std::int32_t signType) {
    const auto* const found =
        std::find_if(std::begin(kSignTypes), std::end(kSignTypes), [&](const SignTypes& types) {
            return signType >= types.first && signType <= types.last;
        });
    return found == std::end(kSignTypes) ? kUnknownSignType : found->name;
}

} // namespace qrtVistrelClasses4
