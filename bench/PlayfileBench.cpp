// Playfiles: load and save, against a parser, a formatter, careful code for the same job, and the least that
// reading and writing can cost.
#include "bench/CarefulPlayfile.h"
#include "bench/FmtPlayfile.h"
#include "bench/Json.h"
#include "bench/JsonPlayfile.h"
#include "bench/SamplePlayfile.h"
#include "bench/SampleReferences.h"
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
/// The operator is not asked about drives, whatever they are on this machine.
void save(FrameInfoClass& frames, const std::string& path) {
    frames.SetSuppressMessages(true);
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

/// The bytes that a file must have in which these frames are saved.
void requireSaved(const Frames& frames, const std::string& path) {
    fmt::memory_buffer expected;
    FormatPlayfile(frames, expected);
    Require(ReadWholeFile(path).text() == std::string_view(expected.data(), expected.size()),
            "other bytes are saved in " + path);
}

/// Makes the files. Whoever loads and saves must find the references, and give back what the formatter made
/// of all the rest, byte for byte.
Sample makeSample(const BenchFolder& folder, PlayfileSize size) {
    Frames frames = MakeFrames(size, folder);
    Sample sample{size, folder.file(size.name() + ".playfile"), folder.file(size.name() + ".json"),
                  folder.file(size.name() + ".saved")};
    SaveWithFmt(frames, sample.playfile);
    WriteNewFile(sample.json, MakeJson(frames));
    FindReferences(frames, folder);

    FrameInfoClass loaded;
    load(loaded, sample.playfile);
    save(loaded, sample.saved);
    requireSaved(frames, sample.saved);
    Require(LoadCarefully(sample.playfile) == frames, "careful code loads other frames");
    SaveCarefully(frames, sample.saved);
    requireSaved(frames, sample.saved);
    Require(ReadJson(sample.json) == contentsOf(frames), "the JSON holds other data");
    const std::size_t values =
        1 + static_cast<std::size_t>(size.frames) * (27 + 17 * static_cast<std::size_t>(size.lines));
    Require(CountLineEnds(ReadWholeFile(sample.playfile).text()) == values, "the playfile holds other lines");
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
    RegisterWork("load/careful/" + sample.size.name(), [sample](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<Frames>(LoadCarefully(sample.playfile)); });
    });
    RegisterWork("save/fmt/" + sample.size.name(), [sample, &folder](benchmark::State& state) {
        const Frames frames = MakeFrames(sample.size, folder);
        TimeWork(state, [&] { SaveWithFmt(frames, sample.saved); });
    });
}

void registerSaving(const Sample& sample) {
    RegisterWork("save/careful/" + sample.size.name(), [sample](benchmark::State& state) {
        const Frames frames = LoadCarefully(sample.playfile);
        TimeWork(state, [&] { SaveCarefully(frames, sample.saved); });
    });
    for (const auto& [name, write] : {std::pair("limit", &WriteNewFile), std::pair("durable", &WriteDurably)})
        RegisterWork("save/" + std::string(name) + "/" + sample.size.name(),
                     [sample, write](benchmark::State& state) {
                         const WholeFile finished = ReadWholeFile(sample.playfile);
                         TimeWork(state, [&] { write(sample.saved, finished.text()); });
                     });
}

void compareContestants(std::vector<Ratio>& ratios, PlayfileSize size) {
    const auto add = [&](const std::string& work, const std::string& against, Bound bound, double most) {
        const std::string name = size.name();
        ratios.push_back(
            {work + " " + name, work + "/" + name, work + "/" + against + "/" + name, bound, most});
    };
    add("load", "RapidJSON", Bound::must, 0.4);
    add("load", "limit", Bound::aim, 1.4);
    add("load", "careful", Bound::aim, 1.1);
    add("save", "fmt", Bound::must, 0.7);
    add("save", "limit", Bound::aim, 5);
    add("save", "durable", Bound::aim, 5);
    add("save", "careful", Bound::aim, 1.2);
}

void compareSmall(std::vector<Ratio>& ratios) {
    const std::string name = kSmall.name();
    ratios.push_back({"load " + name, "load/" + name, "load/limit/" + name, Bound::must, 6});
    ratios.push_back({"load " + name, "load/" + name, "load/limit/" + name, Bound::aim, 3});
    ratios.push_back({"load " + name, "load/" + name, "load/careful/" + name, Bound::aim, 3});
    ratios.push_back({"save " + name, "save/" + name, "save/durable/" + name, Bound::aim, 3});
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
    for (const PlayfileSize size : {kSmall, kUsual, kQuarter, kLarge}) {
        const Sample sample = makeSample(folder, size);
        registerOwn(sample);
        registerOthers(sample, folder);
        registerSaving(sample);
    }
    for (const PlayfileSize size : {kUsual, kLarge})
        compareContestants(ratios, size);
    compareSmall(ratios);
    compareGrowth(ratios);
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
