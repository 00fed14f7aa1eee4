// Any bytes as the known part of records of an older playfile, cut off anywhere.
#include "Fuzz.h"
#include "commands/LegacyVariables.h"
#include "playfile/LegacyFormat.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>
#include <qrtVistrelClasses4/SavePlayfile.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

std::string withoutBlanksAndLineEnds(std::string text) {
    std::erase_if(text, [](char character) { return character == ' ' || character == kLegacyLineEnd; });
    return text;
}

std::string lettersOf(const FrameRecord& frame) {
    std::string letters;
    for (const LineRecord& line : frame.lines)
        letters += line.CurrentLineText;
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

    LoadCircumstances circumstances;
    circumstances.framesAllowed = allowed;
    const LoadOutcome outcome = LoadPlayfile(path, circumstances);
    const bool hasMark = file.size() >= kLegacyMark.size();
    Require(outcome.legacy->hasMark == hasMark && !outcome.error, "the mark decides");
    if (!hasMark)
        return;
    const std::size_t size = file.size() - kLegacyMark.size();
    const auto total =
        static_cast<std::int32_t>(std::min<std::size_t>(size / kLegacyRecordSize, std::size_t(allowed) + 1));
    Require(outcome.framesRead == total && outcome.playfile.frames.upperBound() == total,
            "every whole record is a frame");
    Require(outcome.legacy->bytesAfterRecords == size % kLegacyRecordSize, "and all bytes are counted");
    const auto& losses = outcome.legacy->losses;
    Require(outcome.isComplete == (size == std::size_t(total) * kLegacyRecordSize && losses.empty()),
            "it is complete if nothing is missing");
    const auto hasLoss = [&](std::int32_t number) {
        return std::any_of(losses.begin(), losses.end(),
                           [=](const auto& loss) { return loss.frame == number; });
    };
    for (std::int32_t number = 1; number <= total; ++number) {
        const LegacyRecord& record = records.at(static_cast<std::size_t>(number) - 1);
        Require(lettersOf(outcome.playfile.frames.at(number)) ==
                    withoutBlanksAndLineEnds(ConvertLegacyVariables(record.text)),
                "no letter of a text is lost");
        Require(hasLoss(number) || (record.fontCode <= 4 && record.lineFlags.at(0) < 8 &&
                                    record.text.find("{days}") == record.text.npos),
                "what a frame loses is reported");
    }

    Require(SavePlayfile(outcome.playfile, newPath).isWritten(), "it can be saved as a playfile");
    const auto saved = host.machine.files().content(newPath);
    const LoadOutcome again = LoadPlayfile(newPath);
    Require(again.isComplete, "which can be loaded");
    Require(SavePlayfile(again.playfile, newPath).isWritten() &&
                host.machine.files().content(newPath) == saved,
            "and comes back");
    Require(SavePlayfile(again.playfile, path).wouldReplaceOlder &&
                host.machine.files().content(path) == file,
            "but the older playfile is never replaced");
}

} // namespace qrtVistrelClasses4
