// Playfiles as text, value by value, so that tests can change any of them.
#pragma once

#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// Places of values among the lines of a playfile whose first frame has one line: line 0 is the count.
enum PlayfilePlace {
    kCommandFile = 1,
    kDelay,
    kFontHeightPlace,
    kPicture = 6,
    kPrefix,
    kSuffix,
    kPictureDisplay,
    kPictureType,
    kSendAsIs = 13,
    kOverlay,
    kAviFrames,
    kFastScrollPlace,
    kAudio,
    kLineCount = 27,
    kLineText,
    kFont,
    kScrolling,
    kInverse,
    kLineCustomFont = 33,
    kMerge = 42,
};

/// One frame named "Welcome" with one line "HELLO", every spare field with a value of its own.
inline std::vector<std::string> onePlayfileFrame() {
    return {" 1 ", "",   "3", "16", "Welcome", "2",  "",      "5001",  "5000", "0", "0", "1",
            "40",  "0",  "0", "0",  "0",       "",   "s",     "t",     "u",    "v", "0", "0",
            "1",   "-2", "3", "1",  "HELLO",   "6",  "False", "False", "True", "",  "7", "-8",
            "x",   "",   "z", "4",  "5",       "-6", "False", "True",  "False"};
}

/// The file of those values.
inline std::string playfileText(const std::vector<std::string>& values) {
    std::string text = values.at(0) + "\r\n";
    for (std::size_t index = 1; index < values.size(); ++index)
        text += "\"" + values[index] + "\"\r\n";
    return text;
}

} // namespace qrtVistrelClasses4
