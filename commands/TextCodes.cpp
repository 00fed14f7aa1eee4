#include "commands/TextCodes.h"

#include "commands/NumberedCodes.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kDrawnByFonts = "\xa6";

std::size_t numberedCodeSize(std::string_view text, const NumberedCode& kind) {
    const std::size_t size = kind.letters.size() + kind.digits;
    if (text.size() < size || !text.starts_with(kind.letters))
        return 0;
    int number = 0;
    for (const char digit : text.substr(kind.letters.size(), kind.digits)) {
        if (digit < '0' || digit > '9')
            return 0;
        number = number * 10 + (digit - '0');
    }
    return number >= 1 && number <= kind.last ? size : 0;
}

} // namespace

TextCodes::TextCodes(std::vector<std::string> keys) : keys_(std::move(keys)) {
    std::erase_if(keys_, [](const std::string& key) { return key.empty() || key == kDrawnByFonts; });
    std::ranges::sort(keys_, std::ranges::greater(), &std::string::size);
}

std::size_t TextCodes::sizeAtStart(std::string_view text) const {
    const auto key = std::ranges::find_if(keys_, [&](const std::string& it) { return text.starts_with(it); });
    const std::size_t keySize = key == keys_.end() ? 0 : key->size();
    return std::max({keySize, numberedCodeSize(text, kVariableCode), numberedCodeSize(text, kCounterCode)});
}

} // namespace qrtVistrelClasses4
