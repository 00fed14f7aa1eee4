// Texts about a sign for the user interface.
#include "displays/DisplayProcedures.h"
#include "frame/Conversions.h"
#include "frame/Traced.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/DisplayNames.h>

#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

// Firmware versions from which 16 x 16 fonts are handled the newer way.
constexpr double kNew16x16OfZr7 = 1.44;
constexpr double kNew16x16 = 2.18;
constexpr std::size_t kVersionSize = 4;

/// A member that is known when the program is compiled.
template <auto member>
using Member = std::integral_constant<decltype(member), member>;

/// How a sign is reached; nothing for an unknown method. `text` gives the text of a member.
template <class Text>
std::optional<std::string> connection(std::int16_t method, const Text& text) {
    switch (method) {
    case kDirectConnection:
        return text(Member<&DisplayRecord::CommPort>{}) + ":" + text(Member<&DisplayRecord::BaudRate>{});
    case kNetworkConnection:
        return text(Member<&DisplayRecord::IPAddress>{}) + ":" + text(Member<&DisplayRecord::CommPort>{});
    case kModemConnection:
        return text(Member<&DisplayRecord::PhoneNumber>{}) + ":" + text(Member<&DisplayRecord::CommPort>{}) +
               ":" + text(Member<&DisplayRecord::BaudRate>{});
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<std::string_view> ConnectionMethodName(std::int16_t connectionMethod) {
    switch (connectionMethod) {
    case kDirectConnection:
        return "Direct Connect";
    case kNetworkConnection:
        return "Network Connect";
    case kModemConnection:
        return "Modem Connect";
    default:
        return std::nullopt;
    }
}

std::optional<std::string> ConnectionOf(const DisplayRecord& sign) {
    return connection(sign.ConnectionMethod,
                      [&](std::string DisplayRecord::*member) { return sign.*member; });
}

std::string DisplayDatabaseClass::TranslateConnectionMethodToString(std::int16_t iConnectionMethod) const {
    return trapped({lastError_, DisplayFunction("TranslateConnectionMethodToString")},
                   [&] { return std::string(ConnectionMethodName(iConnectionMethod).value_or("")); });
}

std::string DisplayDatabaseClass::GetConnectionInfoInString() const {
    return trapped({lastError_, DisplayFunction("GetConnectionInfoInString")}, [&] {
        const auto property = [&]<auto member>(Member<member>) { return read<member>(); };
        return connection(ConnectionMethod(), property).value_or("");
    });
}

std::string DisplayDatabaseClass::GetSignTypeDescription() const {
    return trapped({lastError_, DisplayFunction("GetSignTypeDescription")}, [&] {
        const std::string type = DisplayType(); // empty after an error, which has been reported
        return std::string(type.empty() ? "" : SignTypeName(TextToInt16(type)));
    });
}

bool DisplayDatabaseClass::UseNew16x16() const {
    return trapped({lastError_, DisplayFunction("UseNew16x16")}, [&] {
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
