// Modal questions and messages to the operator.
#pragma once

#include <string>

namespace qrtVistrelClasses4 {

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
    /// Blocks until the operator has answered. Timers and the like of the host go on meanwhile, and may
    /// change any object. Where nobody can, a question is answered `no`.
    virtual MessageAnswer show(const Message& message) = 0;
    /// Whether an operator could see a message now.
    virtual bool attended() = 0;
};

} // namespace qrtVistrelClasses4
