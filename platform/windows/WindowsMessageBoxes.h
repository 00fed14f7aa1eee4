#pragma once

#include <qrtVistrelClasses4/MessageBoxes.h>

namespace qrtVistrelClasses4 {

/// The system's message boxes. A service, whose desktop nobody sees, shows none.
class WindowsMessageBoxes final : public MessageBoxes {
public:
    MessageAnswer show(const Message& message) override;
    bool attended() override;
};

} // namespace qrtVistrelClasses4
