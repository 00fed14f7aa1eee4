// The README's example, as a program of its own that knows only the installed headers.
#include <qrtVistrelClasses4/FramePainter.h>
#include <qrtVistrelClasses4/LoadPlayfile.h>
#include <qrtVistrelClasses4/SettingsInfoClass.h>

#include <iostream>

using namespace qrtVistrelClasses4;

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
