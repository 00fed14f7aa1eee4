// The system's own conversions are the measure of ours.
#include "ConversionCases.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <string>

namespace qrtVistrelClasses4 {
namespace {

std::wstring wide(const char* text) { return {text, text + std::char_traits<char>::length(text)}; }

int errorNumber(HRESULT result) {
    switch (result) {
    case S_OK:
        return 0;
    case DISP_E_OVERFLOW:
        return kOverflow;
    case DISP_E_TYPEMISMATCH:
        return kTypeMismatch;
    default:
        return static_cast<int>(result);
    }
}

/// Compares the system's conversion of each row's text to `SystemValue` with value and error of the row.
template <class SystemValue, std::size_t size, class Case, class Convert>
void expectConversions(const Case (&rows)[size], Convert convert) {
    for (const Case& row : rows) {
        SCOPED_TRACE(row.text);
        SystemValue value{};
        EXPECT_EQ(errorNumber(convert(wide(row.text).data(), LOCALE_INVARIANT, 0, &value)), row.error);
        EXPECT_EQ(row.error ? decltype(row.value){} : static_cast<decltype(row.value)>(value), row.value);
    }
}

TEST(SystemConversions, AgreeWithOurTables) {
    expectConversions<SHORT>(kInt16Cases, VarI2FromStr);
    expectConversions<SHORT>(kNoInt16Cases, VarI2FromStr);
    expectConversions<double>(kDoubleCases, VarR8FromStr);
    expectConversions<VARIANT_BOOL>(kBooleanCases, VarBoolFromStr);
    for (const NumberTextCase& row : kNumberTextCases) {
        BSTR text = nullptr;
        ASSERT_EQ(VarBstrFromR8(row.value, LOCALE_INVARIANT, 0, &text), S_OK);
        EXPECT_EQ(std::wstring(text, SysStringLen(text)), wide(row.text));
        SysFreeString(text);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
