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

TEST(SystemConversions, AgreeWithOurTables) {
    for (const IntegerCase& row : kInt16Cases) {
        SCOPED_TRACE(row.text);
        SHORT value = 0;
        EXPECT_EQ(errorNumber(VarI2FromStr(wide(row.text).data(), LOCALE_INVARIANT, 0, &value)), row.error);
        EXPECT_EQ(row.error ? 0 : value, row.value);
    }
    for (const DoubleCase& row : kDoubleCases) {
        SCOPED_TRACE(row.text);
        double value = 0;
        EXPECT_EQ(errorNumber(VarR8FromStr(wide(row.text).data(), LOCALE_INVARIANT, 0, &value)), row.error);
        EXPECT_DOUBLE_EQ(row.error ? 0 : value, row.value);
    }
    for (const BooleanCase& row : kBooleanCases) {
        SCOPED_TRACE(row.text);
        VARIANT_BOOL value = VARIANT_FALSE;
        EXPECT_EQ(errorNumber(VarBoolFromStr(wide(row.text).data(), LOCALE_INVARIANT, 0, &value)), row.error);
        EXPECT_EQ(row.error ? false : value != VARIANT_FALSE, row.value);
    }
    for (const NumberTextCase& row : kNumberTextCases) {
        BSTR text = nullptr;
        ASSERT_EQ(VarBstrFromR8(row.value, LOCALE_INVARIANT, 0, &text), S_OK);
        EXPECT_EQ(std::wstring(text, SysStringLen(text)), wide(row.text));
        SysFreeString(text);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
