// Playfiles as JSON: any text as such a playfile, and random playfiles there and back.
#include "tools/exchange/PlayfileJson.h"
#include "Fuzz.h"
#include "RandomRecords.h"
#include "fuzz/PlayfileBytes.h"
#include "tools/exchange/JsonInput.h"
#include "tools/exchange/JsonOutput.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include <optional>

namespace qrtVistrelClasses4 {
namespace {

LoadOutcome load(const std::string& file) {
    return LoadPlayfileBytes(file, "made.playfile", {.keepsReferences = true});
}

std::string jsonOf(const Playfile& playfile) {
    KeptBytes text;
    JsonOutput json(text);
    json.put(playfile.frames);
    json.finish();
    return text.text;
}

std::optional<Playfile> read(const std::string& text) {
    ErrorLines errors;
    Playfile playfile;
    const bool isRead = ReadJson(text, KindOfPlayfile(), &playfile.frames, errors, JsonChecks::typesOnly);
    Require(isRead == errors.empty(), "what is not read has an error");
    return isRead ? std::optional(std::move(playfile)) : std::nullopt;
}

void requireReturn(const Playfile& playfile) {
    const std::optional<Playfile> again = read(jsonOf(playfile));
    Require(again.has_value(), "what is written is read");
    Require(again->frames == playfile.frames, "it is as it was");
    Require(BytesOf(again->frames) == BytesOf(playfile.frames), "and so are its bytes");
}

Playfile randomPlayfile(RandomRecords& random) {
    constexpr unsigned mostFrames = 5, mostLines = 4;
    Playfile playfile;
    playfile.frames.resize(static_cast<std::int32_t>(random.below(mostFrames)));
    for (FrameRecord& frame : playfile.frames) {
        random.fill(frame, kFrameMembers);
        frame.lines.resize(static_cast<std::int32_t>(random.below(mostLines)));
        for (LineRecord& line : frame.lines)
            random.fill(line, kLineMembers);
    }
    return playfile;
}

/// Cut short, the text of a list is none.
void requireWhole(const std::string& text, RandomRecords& random) {
    const std::size_t end = text.rfind(']');
    Require(!read(text.substr(0, random.below(static_cast<unsigned>(end) + 1))), "a part is not taken");
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    const TestHost host;
    const bool isText = input.byte() == '0'; // otherwise a seed
    const std::string rest = input.rest();
    if (isText) {
        if (const std::optional<Playfile> playfile = read(rest)) {
            requireReturn(*playfile);
            Require(load(BytesOf(playfile->frames)).isComplete, "what is taken can be in a file");
        }
        return;
    }
    RandomRecords random(rest);
    const LoadOutcome loaded = load(BytesOf(randomPlayfile(random).frames));
    Require(loaded.isComplete, "a random playfile can be loaded");
    requireReturn(loaded.playfile);
    requireWhole(jsonOf(loaded.playfile), random);
}

} // namespace qrtVistrelClasses4
