// The host's own database of signs, kept equal to the list.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/ScopedInstallation.h>

namespace QRT_PUBLIC qrtVistrelClasses4 {

class DisplayDatabaseClass;

/// Copies a list of signs into the sign-list database that several computers share. The library has none of
/// its own.
class SignListSynchronisation {
public:
    virtual ~SignListSynchronisation() = default;
    /// Called after `displays` was saved, if the setting "SyncPCScheduler" is "True". The save traps an error
    /// thrown here.
    virtual void synchronise(DisplayDatabaseClass& displays) = 0;
};

/// Installs a synchronisation for the whole process.
using ScopedSignListSynchronisation = ScopedInstallation<SignListSynchronisation>;
template <>
SignListSynchronisation*& ScopedSignListSynchronisation::installed();

} // namespace qrtVistrelClasses4
