// Lists of signs: load and save, against a parser, a writer, careful code for the same job, and the least
// that reading and writing can cost; search, against a plain loop.
#include "bench/CarefulDisplays.h"
#include "bench/Json.h"
#include "bench/JsonDisplays.h"
#include "bench/SampleDisplays.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"
#include "platform/LetterCase.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>

#include <algorithm>
#include <strings.h>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfParser = 0.3;
constexpr double kMostOfReading = 1.7;
constexpr double kMostOfWriter = 0.4;
constexpr double kMostOfWriting = 8;
constexpr double kMostOfCareful = 1.2;
constexpr double kMostOfLoop = 1.3;

constexpr std::int16_t kSigns = 10000;
constexpr std::int16_t kMany = 30000; ///< Nearly as many as can be numbered.
/// Both sizes and a quarter of each, to measure growth.
constexpr std::int16_t kSizes[] = {kSigns / 4, kSigns, kMany / 4, kMany};

constexpr std::size_t kLinesOfASign = 48;

/// One list on disk in every form that the contestants read or write.
struct Sample {
    std::int16_t signs;
    std::string list;
    std::string json;
    std::string savedName; ///< The name for the library, which puts its own folder in front.
    std::string saved;

    std::string size() const { return std::to_string(signs); }
};

/// The library reads the file that its setting names as the one written last.
void load(DisplayDatabaseClass& displays, const Sample& sample) {
    displays.RetrieveAllDisplayInfoFromDisk();
    Require(displays.TotalDisplays() == sample.signs, "cannot load " + sample.list);
}
void rememberFile(const std::string& path) {
    WriteSetting("VistrelLite", "Preview", "DisplayDataFile", path);
}
std::unique_ptr<DisplayDatabaseClass> loaded(const Sample& sample) {
    rememberFile(sample.list);
    auto displays = std::make_unique<DisplayDatabaseClass>();
    load(*displays, sample);
    return displays;
}

void save(DisplayDatabaseClass& displays, const Sample& sample) {
    std::string name = sample.savedName;
    displays.WriteAllDisplaysToDisk(name);
}

/// Makes the files. Loading and saving must give back what the formatter made of the signs, byte for byte,
/// and keep the list that was there before.
Sample makeSample(const BenchFolder& folder, std::int16_t signs) {
    const std::string name = std::to_string(signs);
    const std::string savedName = name + ".saved";
    Sample sample{signs, folder.file(name + ".dat"), folder.file(name + ".json"), savedName,
                  folder.file(savedName)};
    const Displays displays = MakeDisplays(signs);
    SaveWithFmt(displays, sample.list);
    SaveAsJson(displays, sample.json);

    WriteNewFile(sample.saved, "the list before");
    save(*loaded(sample), sample);
    const WholeFile list = ReadWholeFile(sample.list);
    Require(ReadWholeFile(sample.saved).text() == list.text(), "a loaded list is saved differently");
    Require(ReadWholeFile(sample.saved + ".bak2").text() == "the list before", "a list was lost");
    SaveDisplaysCarefully(LoadDisplaysCarefully(sample.list), sample.saved);
    Require(ReadWholeFile(sample.saved).text() == list.text(), "careful code saves other signs");
    Require(ContentsOfJson(sample.json) == ContentsOf(displays), "the JSON holds other data");
    Require(CountLineEnds(list.text()) == kLinesOfASign * displays.size(), "the list holds other lines");
    return sample;
}

void registerOwn(const Sample& sample) {
    RegisterWork("displays/load/" + sample.size(), [sample](benchmark::State& state) {
        rememberFile(sample.list);
        TimeMaking(state, [&] {
            auto displays = std::make_unique<DisplayDatabaseClass>();
            load(*displays, sample);
            return displays;
        });
    });
    RegisterWork("displays/save/" + sample.size(), [sample](benchmark::State& state) {
        const auto displays = loaded(sample);
        TimeWork(state, [&] { save(*displays, sample); });
    });
}

void registerLimits(const Sample& sample) {
    RegisterWork("displays/load/limit/" + sample.size(), [sample](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(CountLineEnds(ReadWholeFile(sample.list).text())); });
    });
    for (const auto& [name, write] :
         {std::pair("limit/", &WriteNewFile), std::pair("durable/", &WriteDurably)})
        RegisterWork("displays/save/" + (name + sample.size()), [sample, write](benchmark::State& state) {
            const WholeFile finished = ReadWholeFile(sample.list);
            TimeWork(state, [&] { write(sample.list, finished.text()); });
        });
}

void registerCareful(const Sample& sample) {
    RegisterWork("displays/load/careful/" + sample.size(), [sample](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<Displays>(LoadDisplaysCarefully(sample.list)); });
    });
    RegisterWork("displays/save/careful/" + sample.size(), [sample](benchmark::State& state) {
        const Displays displays = LoadDisplaysCarefully(sample.list);
        TimeWork(state, [&] { SaveDisplaysCarefully(displays, sample.saved); });
    });
}

void registerJson(const Sample& sample) {
    RegisterWork("displays/load/RapidJSON/" + sample.size(), [sample](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<ParsedJson>(sample.json); });
    });
    RegisterWork("displays/save/RapidJSON/" + sample.size(), [sample](benchmark::State& state) {
        const Displays displays = MakeDisplays(sample.signs);
        TimeWork(state, [&] { SaveAsJson(displays, sample.json); });
    });
}

std::int16_t findWithLoop(const Displays& displays, const std::string& name) {
    const auto found = std::find_if(displays.begin(), displays.end(), [&](const DisplayRecord& display) {
        return strcasecmp(display.DisplayName.c_str(), name.c_str()) == 0;
    });
    return found == displays.end() ? std::int16_t{-1}
                                   : static_cast<std::int16_t>(found - displays.begin() + 1);
}

/// The last sign, searched in another case.
void registerFind(const Sample& sample) {
    const Displays records = MakeDisplays(sample.signs);
    std::string name = records.back().DisplayName;
    std::transform(name.begin(), name.end(), name.begin(), [](char letter) { return AsciiUpper(letter); });
    Require(loaded(sample)->FindDisplayByName(name) == sample.signs, "the library finds another sign");
    Require(findWithLoop(records, name) == sample.signs, "the loop finds another sign");
    RegisterWork("displays/find/" + sample.size(), [sample, name](benchmark::State& state) {
        const auto displays = loaded(sample);
        TimeWork(state, [&] { benchmark::DoNotOptimize(displays->FindDisplayByName(name)); });
    });
    RegisterWork("displays/find/loop/" + sample.size(), [sample, name](benchmark::State& state) {
        const Displays displays = MakeDisplays(sample.signs);
        TimeWork(state, [&] { benchmark::DoNotOptimize(findWithLoop(displays, name)); });
    });
}

void compareContestants(std::vector<Ratio>& ratios) {
    const auto add = [&](const std::string& kind, const std::string& against, Bound bound, double most) {
        const std::string size = std::to_string(kSigns);
        const std::string work = "displays/" + kind + "/";
        ratios.push_back(
            {kind + " " + size + " signs", work + size, work + against + "/" + size, bound, most});
    };
    add("load", "RapidJSON", Bound::must, kMostOfParser);
    add("load", "limit", Bound::aim, kMostOfReading);
    add("load", "careful", Bound::aim, kMostOfCareful);
    add("save", "RapidJSON", Bound::must, kMostOfWriter);
    add("save", "limit", Bound::aim, kMostOfWriting);
    add("save", "durable", Bound::aim, kMostOfWriting);
    add("save", "careful", Bound::aim, kMostOfCareful);
    add("find", "loop", Bound::aim, kMostOfLoop);
}

/// The growth of the limits shows what memory costs that no longer fits the processor's caches.
void compareGrowth(std::vector<Ratio>& ratios) {
    for (const std::string kind : {"load/", "load/limit/", "save/", "save/limit/"})
        for (const std::int16_t signs : {kSigns, kMany}) {
            const std::string work = "displays/" + kind;
            CompareGrowth(ratios, work + std::to_string(signs), work + std::to_string(signs / 4));
        }
}

} // namespace

std::vector<Ratio> DisplaysSubject(const BenchFolder& folder) {
    for (const std::int16_t signs : kSizes) {
        const Sample sample = makeSample(folder, signs);
        registerOwn(sample);
        registerLimits(sample);
        if (signs == kSigns) {
            registerCareful(sample);
            registerJson(sample);
            registerFind(sample);
        }
    }
    std::vector<Ratio> ratios;
    compareContestants(ratios);
    compareGrowth(ratios);
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
