// Playfiles as JSON: written, against saving them; read and checked, against parsing the same text into a
// tree, of which nobody has made records yet.
#include "bench/Dice.h"
#include "bench/Json.h"
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "frame/SystemErrors.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "tools/exchange/JsonInput.h"
#include "tools/exchange/JsonOutput.h"
#include "tools/exchange/PlayfileJson.h"
#include "tools/program/Inputs.h"
#include <qrtVistrelClasses4/SavePlayfile.h>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfSaving = 3;
constexpr double kMostOfParsing = 2;

void writeJson(const Playfile& playfile, const std::string& path) {
    ReplacementFile file(platform().files(), path);
    JsonOutput json(file);
    json.put(playfile.frames);
    json.finish();
    Check(file.commit());
}

Playfile readJson(const std::string& path) {
    ErrorLines errors;
    Playfile playfile;
    Require(ReadJson(ReadInput(path), KindOfPlayfile(), &playfile.frames, errors, JsonChecks::typesOnly),
            "the JSON is not read");
    return playfile;
}

/// Texts of all characters but the one that is a quote in files, some of them long; and a frame of many
/// lines.
void makeAwkward(Playfile& playfile) {
    constexpr unsigned usualSize = 100, longSize = 5000, manyLines = 3000;
    Dice dice;
    playfile.frames.at(2).lines.resize(manyLines);
    for (FrameRecord& frame : playfile.frames)
        for (LineRecord& line : frame.lines) {
            line.CurrentLineText.resize(dice.below(dice.once(100) ? longSize : usualSize));
            for (char& character : line.CurrentLineText)
                character = static_cast<char>(dice.below(255) + 2);
        }
}

/// Measures one playfile.
void compareJson(std::vector<Ratio>& ratios, const std::string& name, const Playfile& playfile,
                 const BenchFolder& folder) {
    const std::string path = folder.file(name + ".json"), saved = folder.file(name + ".saved");
    writeJson(playfile, path);
    Require(readJson(path) == playfile, "the JSON holds other data");
    Require(!ParsedJson(path).document.HasParseError(), "the JSON does not parse");

    const std::string out = "json/write/" + name, save = "json/save/" + name, in = "json/read/" + name,
                      parse = "json/parse/RapidJSON/" + name;
    RegisterWork(out, [=](benchmark::State& state) { TimeWork(state, [&] { writeJson(playfile, path); }); });
    RegisterWork(save, [=](benchmark::State& state) {
        TimeWork(state, [&] { Require(SavePlayfile(playfile, saved).isWritten(), "cannot save"); });
    });
    RegisterWork(in, [=](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<Playfile>(readJson(path)); });
    });
    RegisterWork(parse, [=](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<ParsedJson>(path); });
    });
    ratios.push_back({"JSON written " + name, out, save, Bound::must, kMostOfSaving});
    ratios.push_back({"JSON read " + name, in, parse, Bound::must, kMostOfParsing});
}

} // namespace

std::vector<Ratio> JsonSubject(const BenchFolder& folder) {
    std::vector<Ratio> ratios;
    Playfile playfile;
    playfile.frames = MakeFrames(kUsual, folder);
    compareJson(ratios, kUsual.name(), playfile, folder);
    makeAwkward(playfile);
    compareJson(ratios, "awkward", playfile, folder);
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
