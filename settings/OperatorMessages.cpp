#include "settings/OperatorMessages.h"

#include "frame/Conversions.h"
#include "frame/ErrorTrap.h"
#include "platform/Platform.h"
#include "settings/ErrorLog.h"
#include "settings/RegistrySettings.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

constexpr const char* kVariable = "QRTVISTREL_UNATTENDED";

bool meansTrue(std::string_view text) {
    text = WithoutBlanks(text); // `set X=1 && ...` leaves one
    try {
        return TextToBoolean(text);
    } catch (const RuntimeError&) {
        return !text.empty();
    }
}

/// The store is asked itself, so that nothing is traced and no error is reported, which would ask again.
std::optional<std::string> settingIn(RegistryHive hive) {
    static const std::string key =
        std::string(kSettingsKey) + '\\' + std::string(kVistrel3) + '\\' + std::string(kSettingsSection);
    const auto value = platform().registry().readAsText({hive, key}, "Unattended");
    return value ? std::optional(value.value()) : std::nullopt;
}

std::string logText(const Message& message) {
    std::string text = "Unattended, not shown: " + VisibleText(message.title) + kLogLineEnd;
    for (std::string_view rest = message.text; !rest.empty();) {
        const std::size_t length = std::min(rest.find(kLogLineEnd), rest.size());
        text += "    " + VisibleText(rest.substr(0, length)) + kLogLineEnd;
        rest.remove_prefix(std::min(rest.size(), length + std::string_view(kLogLineEnd).size()));
    }
    return text + "Answer: " + (message.buttons == MessageButtons::yesNo ? "No" : "OK") + kLogLineEnd;
}

class LoggedBoxes final : public MessageBoxes {
public:
    MessageAnswer show(const Message& message) override {
        try {
            if (const std::string text = logText(message); !AppendToErrorLog(text))
                (void)platform().console().write(StandardStream::error, text);
        } catch (...) { // NOLINT(bugprone-empty-catch): a box that cannot be logged is answered all the same
        }
        return message.buttons == MessageButtons::yesNo ? MessageAnswer::no : MessageAnswer::ok;
    }
    bool attended() override { return false; }
};

} // namespace

bool IsUnattended() {
    if (InstalledMessageBoxes())
        return false;
    std::optional<std::string> text = platform().environmentVariable(kVariable);
    for (const RegistryHive hive : {RegistryHive::currentUser, RegistryHive::localMachine})
        if (!text)
            text = settingIn(hive);
    return text && meansTrue(*text);
}

MessageBoxes& OperatorBoxes() {
    static LoggedBoxes loggedBoxes;
    if (MessageBoxes* const installed = InstalledMessageBoxes())
        return *installed;
    return IsUnattended() ? loggedBoxes : platform().messageBoxes();
}

void ShowFailure(int number, const std::string& text, const char* title) {
    NoteError(RuntimeError(number, text));
    OperatorBoxes().show({text, title, MessageIcon::critical, MessageButtons::ok});
}

} // namespace qrtVistrelClasses4
