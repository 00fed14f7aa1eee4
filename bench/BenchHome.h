// A library that lives in a folder.
#pragma once

#include "platform/Platform.h"

#include <memory>
#include <string>

namespace qrtVistrelClasses4::bench {

/// The platform of a home, as long as it lives.
class Home {
public:
    explicit Home(const std::string& folder) : machine_(makePlatform({folder})), use_(*machine_) {}

private:
    std::unique_ptr<Platform> machine_;
    ScopedPlatform use_;
};

} // namespace qrtVistrelClasses4::bench
