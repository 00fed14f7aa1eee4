// What the user interface says of a sign.
#include "displays/DisplayDatabaseClass.h"
#include "displays/DisplayNames.h"
#include "displays/DisplayProcedures.h"
#include "frame/Traced.h"

namespace qrtVistrelClasses4 {
namespace {

// Firmware versions from which 16 x 16 fonts are handled the newer way.
constexpr double kNew16x16OfZr7 = 1.44;
constexpr double kNew16x16 = 2.18;
constexpr std::size_t kVersionSize = 4;

} // namespace

std::string DisplayDatabaseClass::TranslateConnectionMethodToString(std::int16_t iConnectionMethod) {
    return trapped(DisplayFunction("TranslateConnectionMethodToString"), [&]() -> std::string {
        switch (iConnectionMethod) {
        case kDirectConnection:
            return "Direct Connect";
        case kNetworkConnection:
            return "Network Connect";
        case kModemConnection:
            return "Modem Connect";
        default:
            return "";
        }
    });
}

std::string DisplayDatabaseClass::GetConnectionInfoInString() {
    return trapped(DisplayFunction("GetConnectionInfoInString"), [&]() -> std::string {
        switch (ConnectionMethod()) {
        case kDirectConnection:
            return CommPort() + ":" + BaudRate();
        case kNetworkConnection:
            return IPAddress() + ":" + CommPort();
        case kModemConnection:
            return PhoneNumber() + ":" + CommPort() + ":" + BaudRate();
        default:
            return "";
        }
    });
}

std::string DisplayDatabaseClass::GetSignTypeDescription() {
    return trapped(DisplayFunction("GetSignTypeDescription"),
                   [&] { return std::string(SignTypeName(TextToInt16(DisplayType()))); });
}

bool DisplayDatabaseClass::UseNew16x16() {
    return trapped(DisplayFunction("UseNew16x16"), [&] {
        const std::string description = AppDesc();
        const std::size_t point = description.rfind('.');
        if (point == description.npos)
            return false;
        if (point == 0)
            throw RuntimeError(ErrorNumber::invalidProcedureCall);
        const double version = LeadingNumber(description.substr(point - 1, kVersionSize));
        return version >= (IsZr7(TextToInt16(DisplayType())) ? kNew16x16OfZr7 : kNew16x16);
    });
}

} // namespace qrtVistrelClasses4
