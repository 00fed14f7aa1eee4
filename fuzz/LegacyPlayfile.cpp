// Any bytes as the known part of records of an older playfile, cut off anywhere.
#include "Fuzz.h"
#include "commands/LegacyVariables.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/LegacyFormat.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

std::string withoutBlanksAndLineEnds(std::string text) {
    std::erase_if(text, [](char character) { return character == ' ' || character == kLegacyLineEnd; });
    return text;
}

std::string lettersOf(FrameInfoClass& playfile, std::int16_t frame) {
    std::string letters;
    playfile.CurrentFrame(frame);
    const std::int16_t lines = playfile.TotalLinesAllowed();
    for (std::int16_t line = 1; line <= lines; ++line) {
        playfile.CurrentLineNumber(line);
        letters += playfile.CurrentLineText();
    }
    return withoutBlanksAndLineEnds(letters);
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    const std::string path = host.inLibrary("a.PL2");
    const std::string newPath = host.inLibrary("\x01.playfile");
    const auto allowed = static_cast<std::int16_t>(input.byte());
    std::size_t cut = input.byte();
    cut = cut * 256 + input.byte();
    std::string file(kLegacyMark);
    std::vector<LegacyRecord> records;
    while (!input.atEnd()) {
        std::string record = input.bytes(kLegacyUsedSize);
        record.resize(kLegacyRecordSize, '\xee');
        records.push_back(ReadLegacyRecord(std::string_view(record).substr(0, kLegacyUsedSize)));
        file += record;
    }
    file.resize(file.size() - std::min(cut, file.size()));
    host.machine.files().put(path, file);

    FrameInfoClass playfile;
    playfile.SetSuppressMessages(true);
    playfile.TotalFramesAllowed(allowed);
    const bool hasMark = file.size() >= kLegacyMark.size();
    Require(playfile.GetPlayfileFromDisk(path) == hasMark, "the mark decides");
    if (!hasMark)
        return;
    const std::size_t whole = (file.size() - kLegacyMark.size()) / kLegacyRecordSize;
    const auto total = static_cast<std::int16_t>(std::min<std::size_t>(whole, std::size_t(allowed) + 1));
    Require(playfile.TotalFrames() == total, "every whole record is a frame");
    for (std::int16_t number = 1; number <= total; ++number)
        Require(lettersOf(playfile, number) == withoutBlanksAndLineEnds(ConvertLegacyVariables(
                                                   records.at(static_cast<std::size_t>(number) - 1).text)),
                "no letter of a text is lost");

    Require(playfile.WritePlayfileToDisk(newPath), "it can be saved as a playfile");
    const auto saved = host.machine.files().content(newPath);
    FrameInfoClass again;
    again.SetSuppressMessages(true);
    Require(again.GetPlayfileFromDisk(newPath), "which can be loaded");
    Require(again.WritePlayfileToDisk(newPath) && host.machine.files().content(newPath) == saved,
            "and comes back");
}

} // namespace qrtVistrelClasses4
