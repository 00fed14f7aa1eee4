#pragma once

#include "platform/Inspection.h"

namespace qrtVistrelClasses4 {

/// There are no registrations on POSIX systems.
class PosixInspection final : public Inspection {
public:
    std::string systemName() override;
    SystemError mayAddTo(const std::string& folder) override;
};

} // namespace qrtVistrelClasses4
