#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/SettingsInfoClass.h>

#include <iostream>

int main(int, char** arguments) {
    qrtVistrelClasses4::FrameInfoClass playfile;
    qrtVistrelClasses4::SettingsInfoClass settings;
    if (!playfile.GetPlayfileFromDisk(arguments[1]))
        return 1;
    std::cout << playfile.TotalFrames() << " frames for a sign " << settings.DisplayWidth() << " dots wide\n";
}
