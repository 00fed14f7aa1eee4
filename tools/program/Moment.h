// The moment for which texts with times and dates are shown.
#pragma once

#include "platform/Platform.h"

#include <CLI/CLI.hpp>

#include <istream>
#include <memory>
#include <optional>

namespace qrtVistrelClasses4 {

/// Not an aggregate, because options would also accept its first number alone for an aggregate.
struct Moment {
    Moment() = default;
    LocalTime time;
};

/// Reads "2026-11-21 14:30".
std::istream& operator>>(std::istream& in, Moment& moment);

void AddMomentOption(CLI::App& command, std::optional<Moment>& moment);

/// Stops the clock, at the moment given or else now, for as long as it lives.
class ScopedMoment {
public:
    explicit ScopedMoment(const std::optional<Moment>& moment);

private:
    std::unique_ptr<Platform> clock_;
    ScopedPlatform scope_;
};

} // namespace qrtVistrelClasses4
