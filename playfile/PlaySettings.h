// What the settings of this machine say about showing playfiles.
#pragma once

#include <qrtVistrelClasses4/CommandTable.h>
#include <qrtVistrelClasses4/Preferences.h>
#include <qrtVistrelClasses4/Raster.h>
#include <qrtVistrelClasses4/SignTiming.h>

namespace qrtVistrelClasses4 {

struct PlaySettings {
    Preferences preferences;
    SignTiming timing;
    CommandTable commands;

    /// The size of a sign that a playfile describes by `sign`: a number that is not above 0 is that of the
    /// preferences.
    DotSize sizeOf(DotSize sign) const;
};

/// Reads the preferences of this machine. What cannot be read is logged, but not shown, and its default is
/// used.
Preferences LoadPreferencesQuietly();

/// Reads the settings. What cannot be read is logged, but not shown, and its default is used.
PlaySettings LoadPlaySettings();

} // namespace qrtVistrelClasses4
