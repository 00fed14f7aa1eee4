// A user's program: loads a playfile and draws a frame of it with the installed headers only.
#include <qrtVistrelClasses4/FramePainter.h>
#include <qrtVistrelClasses4/LoadPlayfile.h>
#include <qrtVistrelClasses4/MostRecentlyUsed.h>
#include <qrtVistrelClasses4/SavePlayfile.h>
#include <qrtVistrelClasses4/SettingsInfoClass.h>
#include <qrtVistrelClasses4/SignList.h>
#include <qrtVistrelClasses4/Version.h>
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <iostream>
#include <type_traits>

using namespace qrtVistrelClasses4;

// Containers of values and outcomes grow without copying any.
template <class... Values>
constexpr bool moveWithoutExceptions = ((std::is_nothrow_move_constructible_v<Values> &&
                                         std::is_nothrow_move_assignable_v<Values>)&&...);
static_assert(moveWithoutExceptions<Playfile, FrameRecord, LineRecord, SignList, DisplayRecord, Preferences,
                                    RecentFiles, CommandTable, Raster, PixelBuffer, FramePainter>);
static_assert(
    moveWithoutExceptions<LoadOutcome, SaveOutcome, SignListOutcome, SignListSaving, PreferencesOutcome,
                          WrittenPreference, RecentFilesOutcome, CommandTableOutcome, SavedCommandTable>);
#if QRT_VERSION_MAJOR != 4 || QRT_VERSION_MINOR < 0 || QRT_VERSION_PATCH < 0
#error "This program is for version 4"
#endif
static_assert(kVersionMajor == 4 && kVersion.starts_with("4."));

int main(int, char** arguments) {
    const LoadOutcome outcome = LoadPlayfile(arguments[1]);
    if (!outcome.isComplete)
        return 1;
    const SettingsInfoClass settings;
    std::cout << outcome.framesRead << " frames for a sign " << settings.DisplayWidth() << " dots wide\n";
    FramePainter painter(SignLook{});
    painter.draw(outcome.playfile.frames, 1, 1, {8, 2}, [](std::int32_t number, const PixelBuffer& dots) {
        std::cout << "frame " << number << ", " << dots.width() << " x " << dots.height() << " dots\n";
    });
}
