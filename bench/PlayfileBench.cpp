// Playfiles: load and save, against a parser, a formatter, and the least that reading and writing can cost.
#include "bench/FmtPlayfile.h"
#include "bench/Json.h"
#include "bench/JsonPlayfile.h"
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr PlayfileSize kQuarter{7500, 4};

/// One playfile on disk in every form that the contestants read or write.
struct Sample {
    PlayfileSize size;
    std::string playfile;
    std::string json;
    std::string saved;
};

void load(FrameInfoClass& frames, const std::string& path) {
    Require(frames.GetPlayfileFromDisk(path), "cannot load " + path);
}
void save(FrameInfoClass& frames, const std::string& path) {
    Require(frames.WritePlayfileToDisk(path), "cannot save " + path);
}

JsonContents contentsOf(const Frames& frames) {
    JsonContents contents;
    for (const FrameRecord& frame : frames) {
        ++contents.frames;
        contents.delaySeconds += frame.DelayTime;
        for (const LineRecord& line : frame.lines) {
            ++contents.lines;
            contents.textSize += line.CurrentLineText.size();
        }
    }
    return contents;
}

/// Makes the files. Loading and saving must give back what the formatter made of the frames, byte for byte.
Sample makeSample(const BenchFolder& folder, PlayfileSize size) {
    const Frames frames = MakeFrames(size, folder);
    Sample sample{size, folder.file(size.name() + ".playfile"), folder.file(size.name() + ".json"),
                  folder.file(size.name() + ".saved")};
    SaveWithFmt(frames, sample.playfile);
    WriteNewFile(sample.json, MakeJson(frames));

    FrameInfoClass loaded;
    load(loaded, sample.playfile);
    save(loaded, sample.saved);
    const WholeFile playfile = ReadWholeFile(sample.playfile);
    Require(ReadWholeFile(sample.saved).text() == playfile.text(), "a loaded playfile is saved differently");
    Require(ReadJson(sample.json) == contentsOf(frames), "the JSON holds other data");
    const std::size_t values =
        1 + static_cast<std::size_t>(size.frames) * (27 + 17 * static_cast<std::size_t>(size.lines));
    Require(CountLineEnds(playfile.text()) == values, "the playfile holds other lines");
    return sample;
}

void registerOwn(const Sample& sample) {
    RegisterWork("load/" + sample.size.name(), [sample](benchmark::State& state) {
        TimeMaking(state, [&] {
            auto frames = std::make_unique<FrameInfoClass>();
            load(*frames, sample.playfile);
            return frames;
        });
    });
    RegisterWork("save/" + sample.size.name(), [sample](benchmark::State& state) {
        FrameInfoClass frames;
        load(frames, sample.playfile);
        TimeWork(state, [&] { save(frames, sample.saved); });
    });
}

void registerOthers(const Sample& sample, const BenchFolder& folder) {
    RegisterWork("load/RapidJSON/" + sample.size.name(), [sample](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<ParsedJson>(sample.json); });
    });
    RegisterWork("load/limit/" + sample.size.name(), [sample](benchmark::State& state) {
        TimeWork(state,
                 [&] { benchmark::DoNotOptimize(CountLineEnds(ReadWholeFile(sample.playfile).text())); });
    });
    RegisterWork("save/fmt/" + sample.size.name(), [sample, &folder](benchmark::State& state) {
        const Frames frames = MakeFrames(sample.size, folder);
        TimeWork(state, [&] { SaveWithFmt(frames, sample.saved); });
    });
    RegisterWork("save/limit/" + sample.size.name(), [sample](benchmark::State& state) {
        const WholeFile finished = ReadWholeFile(sample.playfile);
        TimeWork(state, [&] { WriteNewFile(sample.saved, finished.text()); });
    });
}

void compareContestants(std::vector<Ratio>& ratios, PlayfileSize size) {
    const std::string name = size.name();
    ratios.push_back({"load " + name, "load/" + name, "load/RapidJSON/" + name, Bound::must, 0.6});
    ratios.push_back({"load " + name, "load/" + name, "load/limit/" + name, Bound::aim, 1.6});
    ratios.push_back({"save " + name, "save/" + name, "save/fmt/" + name, Bound::must, 1.0});
    ratios.push_back({"save " + name, "save/" + name, "save/limit/" + name, Bound::aim, 7.0});
}

std::unique_ptr<FrameInfoClass> addFramesOneByOne(std::int16_t count) {
    auto frames = std::make_unique<FrameInfoClass>();
    for (std::int16_t number = 1; number <= count; ++number)
        frames->TotalFrames(number);
    Require(frames->TotalFrames() == count, "frames are missing");
    return frames;
}

std::string registerGrowingByOne(std::int16_t count) {
    std::string name = "TotalFrames one by one/" + std::to_string(count);
    RegisterWork(name, [count](benchmark::State& state) {
        TimeMaking(state, [&] { return addFramesOneByOne(count); });
    });
    return name;
}

/// What four times the frames cost. Memory that no longer fits the processor's caches costs more, whoever
/// uses it: the limit's own growth shows how much.
void compareGrowth(std::vector<Ratio>& ratios) {
    for (const std::string kind : {"load/", "load/limit/", "save/"})
        CompareGrowth(ratios, kind + kLarge.name(), kind + kQuarter.name());
    CompareGrowth(ratios, registerGrowingByOne(kLarge.frames), registerGrowingByOne(kQuarter.frames));
}

} // namespace

std::vector<Ratio> PlayfileSubject(const BenchFolder& folder) {
    std::vector<Ratio> ratios;
    for (const PlayfileSize size : {kUsual, kQuarter, kLarge}) {
        const Sample sample = makeSample(folder, size);
        registerOwn(sample);
        registerOthers(sample, folder);
    }
    for (const PlayfileSize size : {kUsual, kLarge})
        compareContestants(ratios, size);
    compareGrowth(ratios);
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
