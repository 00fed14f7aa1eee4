// A walk over all properties of a playfile and of a list of signs, as an application that shows them makes
// it: cursor by cursor through the class. The careful contestant reads the records.
#include "bench/SampleDisplays.h"
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>

#include <type_traits>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfRecords = 4;
constexpr std::int16_t kSigns = 10000;

/// Values of all types, added up, so that contestants can be compared and no read is left out.
class Total {
public:
    void add(const std::string& text) { total_ += text.size() + (text.empty() ? 0U : text.front() & 0x7FU); }
    template <class Number>
    requires std::is_arithmetic_v<Number>
    void add(Number number) { total_ += static_cast<std::size_t>(static_cast<std::int64_t>(number)); }
    void add(FRAME_TYPES type) { add(static_cast<std::int32_t>(type)); }
    template <class... Values>
    void addAll(const Values&... values) {
        (add(values), ...);
    }
    std::size_t value() const { return total_; }

private:
    std::size_t total_ = 0;
};

std::size_t walk(FrameInfoClass& frames) {
    Total total;
    const std::int16_t count = frames.TotalFrames();
    for (std::int16_t number = 1; number <= count; ++number) {
        frames.CurrentFrame(number);
        total.addAll(frames.commandfile(), frames.DelayTime(), frames.FontHeight(), frames.FontWidth(),
                     frames.FrameName(), frames.FrameType(), frames.PicturefileName(), frames.PrefixCode(),
                     frames.SuffixCode(), frames.PictureFileDisplay(), frames.PictureFileType(),
                     frames.TotalDisplayFramesUsedForThisFrame(), frames.RowHeightForGrid(),
                     frames.SendCommandFileAsIs(), frames.OverlayFrame(), frames.AVIFrames(),
                     frames.FastScroll(), frames.AudioFile(), frames.WinBackColor(),
                     frames.FixedNumberOfLines());
        const std::int16_t lines = frames.TotalLinesAllowed();
        for (std::int16_t line = 1; line <= lines; ++line) {
            frames.CurrentLineNumber(line);
            total.addAll(frames.CurrentLineText(), frames.LineFontSize(), frames.Scrolling(),
                         frames.Inverse(), frames.Blinking(), frames.LineCustomFont(), frames.Merge());
        }
    }
    return total.value();
}

template <class Record>
void addProperties(Total& total, const Record& record) {
    ForEachRow(kMembersOf<Record>, [&](const auto& row) {
        if constexpr (requires { total.add(row.get(record)); })
            if (row.access != Access::none)
                total.add(row.get(record));
    });
}

/// Texts are copied, as a caller of the properties gets them.
std::size_t walk(const Frames& frames) {
    Total total;
    for (const FrameRecord& frame : frames) {
        addProperties(total, frame);
        for (const LineRecord& line : frame.lines)
            addProperties(total, line);
    }
    return total.value();
}

std::size_t walk(DisplayDatabaseClass& signs) {
    Total total;
    const std::int16_t count = signs.TotalDisplays();
    for (std::int16_t number = 1; number <= count; ++number) {
        signs.CurrentDisplayNumber(number);
        total.addAll(signs.DisplayName(), signs.DisplayType(), signs.DisplayHeight(), signs.DisplayWidth(),
                     signs.IsDisplayColor(), signs.DefaultColor(), signs.ColorsSupported(),
                     signs.SwitchOperated(), signs.TempProbeInstalled(), signs.DisplayIDs(),
                     signs.DaylightSavingsTime(), signs.ScrollPauseDelay(), signs.TempProbeAdjust(),
                     signs.TimeZoneAdjustment(), signs.ScrollingTextSpeed(), signs.ResetOnGetParameters(),
                     signs.BrightnessLevel(), signs.LightSensorMinimum(), signs.LightSensorMaximum(),
                     signs.PhoneNumber(), signs.IPAddress(), signs.CommPort(), signs.BaudRate(),
                     signs.ConnectionMethod(), signs.LightSensorInstalled(), signs.FrameSize(),
                     signs.Switch1(), signs.Switch2(), signs.BlinkRateShow(), signs.BlinkRateClear(),
                     signs.AppDesc(), signs.BlinkBehavior(), signs.BlinkTimes(),
                     signs.BrightnessScheduleDefaultBrightness());
        for (std::int16_t schedule = 1; schedule <= kSchedulesOfADisplay; ++schedule) {
            signs.CurrentBrightnessScheduleNumber(schedule);
            total.addAll(signs.BrightnessScheduleXStartTime(), signs.BrightnessScheduleXStopTime(),
                         signs.BrightnessScheduleXBrightnessLevel());
        }
    }
    return total.value();
}

/// What a property gives for a member: the type of a sign is a text there.
template <class Row>
typename Row::Property propertyOf(const Row& row, const typename Row::Record& record) {
    const typename Row::Value& value = record.*row.member;
    if constexpr (std::is_same_v<typename Row::Value, typename Row::Property>)
        return value;
    else
        return std::to_string(value);
}

std::size_t walk(const Displays& signs) {
    Total total;
    for (const DisplayRecord& sign : signs) {
        ForEachRow(kDisplayMembers, [&](const auto& row) {
            if constexpr (!requires { row.elements; })
                if (row.access != Access::none)
                    total.add(propertyOf(row, sign));
        });
        for (const BrightnessSchedule& schedule : sign.schedules)
            ForEachRow(kScheduleMembers, [&](const auto& row) { total.add(propertyOf(row, schedule)); });
    }
    return total.value();
}

} // namespace

std::vector<Ratio> WalkSubject(const BenchFolder& folder) {
    std::vector<Ratio> ratios;
    const auto compare = [&](const std::string& name, auto own, auto records) {
        Require(walk(*own) == walk(records), "the properties have other values than the records");
        RegisterWork(name, [own](benchmark::State& state) {
            TimeWork(state, [&] { benchmark::DoNotOptimize(walk(*own)); });
        });
        RegisterWork(name + "/records", [records](benchmark::State& state) {
            TimeWork(state, [&] { benchmark::DoNotOptimize(walk(records)); });
        });
        ratios.push_back({name, name, name + "/records", Bound::aim, kMostOfRecords});
    };
    const std::shared_ptr<FrameInfoClass> frames = MakePlayfile(kUsual, folder);
    compare("walk frames", frames, frames->Value().frames);

    const Displays records = MakeDisplays(kSigns);
    const std::string path = folder.file("walk.dat");
    SaveWithFmt(records, path);
    WriteSetting("VistrelLite", "Preview", "DisplayDataFile", path);
    const auto signs = std::make_shared<DisplayDatabaseClass>();
    signs->RetrieveAllDisplayInfoFromDisk();
    compare("walk signs", signs, records);
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
