// The host's own database of signs, kept equal to the list.
#pragma once

#include "platform/ScopedInstallation.h"

namespace qrtVistrelClasses4 {

class DisplayDatabaseClass;

/// Copies a list of signs into the sign-list database that several computers share. The library has none of
/// its own.
class SignListSynchronisation {
public:
    virtual ~SignListSynchronisation() = default;
    /// Called when `displays` has been saved and the setting "SyncPCScheduler" wants it. An error thrown here
    /// is trapped as one of the save.
    virtual void synchronise(DisplayDatabaseClass& displays) = 0;
};

/// Installs a synchronisation for the whole process.
using ScopedSignListSynchronisation = ScopedInstallation<SignListSynchronisation>;
template <>
SignListSynchronisation*& ScopedSignListSynchronisation::installed();

} // namespace qrtVistrelClasses4
