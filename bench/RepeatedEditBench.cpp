// Edits repeated thousands of times, as a program makes them that fills a playfile or a list of signs.
#include "bench/SampleDisplays.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "platform/LetterCase.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <memory>
#include <unordered_set>
#include <utility>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr std::int16_t kFrames = 4000;
constexpr std::int16_t kSigns = 8000;
constexpr double kMostOfVector = 2;

using Frames = std::vector<FrameRecord>;
using Signs = DisplayDatabaseClass;

std::unique_ptr<FrameInfoClass> insertFrames(std::int16_t count) {
    auto frames = std::make_unique<FrameInfoClass>();
    frames->TotalFrames(1);
    frames->CurrentFrame(1);
    while (frames->TotalFrames() < count)
        frames->InsertFrame();
    return frames;
}
std::unique_ptr<Frames> insertRecords(std::int16_t count) {
    auto frames = std::make_unique<Frames>();
    while (frames->size() < static_cast<std::size_t>(count)) {
        FrameRecord empty;
        empty.lines.resize(1);
        frames->insert(frames->begin(), std::move(empty));
    }
    return frames;
}

std::string nameOf(std::int16_t number) { return "Platform sign " + std::to_string(number); }

std::unique_ptr<Signs> addSigns(std::int16_t count) {
    auto signs = std::make_unique<Signs>();
    for (std::int16_t number = 1; number <= count; ++number)
        Require(signs->AddNewDisplay(nameOf(number)) == number, "a sign is not added");
    return signs;
}
std::unique_ptr<Displays> addRecords(std::int16_t count) {
    auto signs = std::make_unique<Displays>();
    std::unordered_set<std::string> names;
    for (std::int16_t number = 1; number <= count; ++number)
        if (const std::string name = nameOf(number); names.insert(AnsiUpperCase(name)).second)
            signs->emplace_back().DisplayName = name;
    return signs;
}

void removeAll(Signs& signs) {
    while (signs.TotalDisplays() > 0)
        signs.RemoveDisplay(1);
}
void removeAll(Displays& signs) {
    while (!signs.empty())
        signs.erase(signs.begin());
}

/// Registers what returns a pointer to `count` records, made one by one.
template <class Make>
std::string registerMaking(const std::string& name, Make make, std::int16_t count) {
    std::string work = name + "/" + std::to_string(count);
    RegisterWork(work,
                 [make, count](benchmark::State& state) { TimeMaking(state, [&] { return make(count); }); });
    return work;
}

template <class Make>
std::string registerRemoving(const std::string& name, Make make) {
    RegisterWork(name, [make](benchmark::State& state) {
        auto made = make(kSigns);
        TimeWork(
            state, [&] { removeAll(*made); }, [&] { made = make(kSigns); });
    });
    return name;
}

} // namespace

std::vector<Ratio> RepeatedEditSubject() {
    Require(insertFrames(9)->TotalFrames() == 9 && addSigns(9)->TotalDisplays() == 9, "records are missing");
    const std::string adding = registerMaking("repeated/add signs", addSigns, kSigns);
    std::vector<Ratio> ratios{
        {"insert 4000 frames at front", registerMaking("repeated/insert", insertFrames, kFrames),
         registerMaking("repeated/insert/vector", insertRecords, kFrames), Bound::aim, kMostOfVector},
        {"add 8000 signs", adding, registerMaking("repeated/add signs/vector", addRecords, kSigns),
         Bound::aim, kMostOfVector},
        {"remove 8000 signs at front", registerRemoving("repeated/remove signs", addSigns),
         registerRemoving("repeated/remove signs/vector", addRecords), Bound::aim, kMostOfVector}};
    CompareGrowth(ratios, adding, registerMaking("repeated/add signs", addSigns, kSigns / 4));
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
