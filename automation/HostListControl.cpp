#include "automation/HostListControl.h"

#include "automation/Values.h"
#include "frame/Conversions.h"

namespace qrtVistrelClasses4 {
namespace {

VARIANT numberArgument(std::int32_t number) {
    VARIANT argument{};
    V_VT(&argument) = VT_I4;
    V_I4(&argument) = number;
    return argument;
}

/// The result borrows `text`.
VARIANT textArgument(const OwnedBstr& text) {
    VARIANT argument{};
    V_VT(&argument) = VT_BSTR;
    V_BSTR(&argument) = text.get();
    return argument;
}

} // namespace

void HostListControl::Clear() { list_.call(L"Clear"); }

void HostListControl::AddItem(const std::string& text) {
    const OwnedBstr wide = WideText(text);
    list_.call(L"AddItem", {textArgument(wide)});
}

std::int32_t HostListControl::NewIndex() { return readNumber(L"NewIndex"); }

void HostListControl::ItemData(std::int32_t index, std::int32_t data) {
    list_.put(L"ItemData", {numberArgument(data), numberArgument(index)});
}

std::int32_t HostListControl::ListCount() { return readNumber(L"ListCount"); }

void HostListControl::RemoveItem(std::int32_t index) { list_.call(L"RemoveItem", {numberArgument(index)}); }

std::int32_t HostListControl::readNumber(const wchar_t* name) {
    return RoundToInt32(static_cast<double>(list_.readNumber(name)));
}

} // namespace qrtVistrelClasses4
