// Replacing a service of the library for a while.
#pragma once

#include <qrtVistrelClasses4/Export.h>

#include <utility>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Installs `service` in place of the one in use. The destructor puts that one back. `service` must outlive
/// this object.
///
/// The trace recorder belongs to the thread that installs it. All other services belong to the process and
/// are not guarded: install them before other threads use the library, and keep them until those have ended.
template <class Service>
class ScopedInstallation {
public:
    explicit ScopedInstallation(Service& service) : previous_(std::exchange(installed(), &service)) {}
    ~ScopedInstallation() { installed() = previous_; }
    ScopedInstallation(const ScopedInstallation&) = delete;
    ScopedInstallation& operator=(const ScopedInstallation&) = delete;

private:
    /// The service that was installed last; null if none is. Each service defines its own.
    static Service*& installed();

    Service* previous_;
};

} // namespace qrtVistrelClasses4
