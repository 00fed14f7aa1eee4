// Modal questions and messages to the operator.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/ScopedInstallation.h>

#include <string>

namespace QRT_PUBLIC qrtVistrelClasses4 {

enum class MessageIcon { none, critical, question };
enum class MessageButtons { ok, yesNo };
enum class MessageAnswer { ok, yes, no };

struct Message {
    std::string text; ///< Lines are separated by CR LF.
    std::string title;
    MessageIcon icon = MessageIcon::none;
    MessageButtons buttons = MessageButtons::ok;
};

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    /// Blocks until the operator has answered. Meanwhile the host's timers go on, and may change any object.
    /// If nobody can see the box, a question is answered `no`.
    virtual MessageAnswer show(const Message& message) = 0;
    /// Whether an operator can see a message now.
    virtual bool attended() = 0;
};

/// Installs other message boxes for the whole process.
using ScopedMessageBoxes = ScopedInstallation<MessageBoxes>;
template <>
MessageBoxes*& ScopedMessageBoxes::installed();

} // namespace qrtVistrelClasses4
