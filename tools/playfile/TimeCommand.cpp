// vistrel time: how long a sign takes to show playfiles, and what they take of it.
#include "frame/Conversions.h"
#include "tools/playfile/Opening.h"
#include "tools/playfile/PlayTimes.h"
#include "tools/preview/Faults.h"
#include "tools/program/Commands.h"
#include "tools/program/Duration.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/JsonText.h"
#include "tools/program/Size.h"
#include "tools/program/Table.h"
#include "tools/program/ValueKinds.h"
#include "tools/signs/SignsFile.h"

#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct TimeOptions {
    InputOptions input;
    std::string sign;
    std::optional<DotSize> size;
    bool steps = false;
    bool json = false;
    AnswerOptions answers;
};

/// A playfile, and how long it runs.
struct TimedPlayfile {
    Playfile playfile;
    PlayTime time;

    const FrameRecord& frameOf(PlaybackStep step) const { return playfile.frames.at(step.frame); }
};

/// Where the files are shown: as JSON, or in a table that is printed at the end.
struct TimeReport {
    Headings headings;
    std::optional<JsonArray> files{};
    Table table{{{"File"},
                 {"Likely", Table::Align::right},
                 {"Shortest", Table::Align::right},
                 {"Longest", Table::Align::right},
                 {"Sign frames", Table::Align::right},
                 {"Custom fonts", Table::Align::right},
                 {"Bytes of fonts", Table::Align::right}}};
    bool isEmpty = true;
};

/// Seconds as JSON. Sums lose their last digits, which only show how they were added.
double secondsForJson(double seconds) { return TextToDouble(NumberToText(seconds)); }

void printTimeJson(std::ostream& out, const std::string& path, const TimedPlayfile& timed) {
    const TimeRange& total = timed.time.total;
    const nlohmann::ordered_json facts{{"file", path},
                                       {"shortest", secondsForJson(total.shortest)},
                                       {"likely", secondsForJson(total.likely)},
                                       {"longest", secondsForJson(total.longest)},
                                       {"isCut", timed.time.playback.isCut},
                                       {"displayFrames", CountDisplayFrames(timed.playfile)},
                                       {"customFonts", CustomFontsOf(timed.playfile).size()},
                                       {"customFontBytes", SizeOfCustomFonts(timed.playfile)}};
    const std::string text = JsonText(facts);
    out << std::string_view(text).substr(0, text.rfind("\n}")) << ",\n  \"steps\": ";
    JsonArray steps(out);
    for (std::size_t index = 0; index < timed.time.playback.steps.size(); ++index) {
        const PlaybackStep step = timed.time.playback.steps[index];
        const FrameTime& times = timed.time.timesOf(index);
        steps.add({{"frame", step.frame},
                   {"name", Utf8FromAnsi(timed.frameOf(step).FrameName)},
                   {"round", step.round},
                   {"start", secondsForJson(timed.time.starts[index])},
                   {"appearing", secondsForJson(times.appearing.likely)},
                   {"holding", secondsForJson(times.holding.likely)},
                   {"scrolling", secondsForJson(times.scrolling.likely)},
                   {"disappearing", secondsForJson(times.disappearing.likely)}});
    }
    steps.end();
    out << "\n}";
}

void printSteps(std::ostream& out, const TimedPlayfile& timed) {
    constexpr auto right = Table::Align::right;
    Table table({{"Start", right},
                 {"No.", right},
                 {"Name"},
                 {"Round", right},
                 {"Appears", right},
                 {"Holds", right},
                 {"Scrolls", right},
                 {"Disappears", right}});
    const auto partText = [](const TimeRange& part) {
        return part.likely > 0 ? DurationText(part.likely) : std::string();
    };
    const PlayTime& time = timed.time;
    table.setMoreRows(time.playback.steps.size(), [&](std::size_t index) -> Table::Cells {
        const PlaybackStep step = time.playback.steps[index];
        const FrameTime& times = time.timesOf(index);
        return {DurationText(time.starts[index]),
                std::to_string(step.frame),
                VisibleAnsi(timed.frameOf(step).FrameName),
                std::to_string(step.round),
                partText(times.appearing),
                partText(times.holding),
                partText(times.scrolling),
                partText(times.disappearing)};
    });
    out << table;
}

void addRow(Table& table, const std::string& path, const TimedPlayfile& timed) {
    const TimeRange& total = timed.time.total;
    const bool isExact = total.shortest == total.longest;
    table.addRow({Visible(InputName(path)), DurationText(total.likely),
                  isExact ? "" : DurationText(total.shortest), isExact ? "" : DurationText(total.longest),
                  std::to_string(CountDisplayFrames(timed.playfile)),
                  std::to_string(CustomFontsOf(timed.playfile).size()),
                  std::to_string(SizeOfCustomFonts(timed.playfile))});
}

ExitCode timeFile(const std::string& path, const TimeOptions& options,
                  const PlayTimeCircumstances& circumstances, TimeReport& report, Session& session) {
    auto opened = OpenPlayfile(path, YesUnlessNo(options.answers), session.errors);
    if (!opened)
        return ExitCode::failed;
    AddLosses(*opened, session.errors);
    TimedPlayfile timed{std::move(opened->playfile), {}};
    timed.time = PlayTimeOf(timed.playfile, circumstances);
    AddFaults(timed.time.faults, session.errors);
    if (timed.time.playback.isCut)
        session.errors.add("the time is that of the first " + std::to_string(kMostPlaybackSteps) +
                           " steps: loops make more, and no more are counted");
    if (report.files) {
        printTimeJson(report.files->startElement(), path, timed);
        return ExitCode::done;
    }
    if (options.steps) {
        report.headings.print(path);
        printSteps(session.out, timed);
    }
    addRow(report.table, path, timed);
    report.isEmpty = false;
    return ExitCode::done;
}

ExitCode timePlayfiles(const TimeOptions& options, Session& session) {
    PlayTimeCircumstances circumstances = LoadPlayTimeCircumstances(session.errors);
    if (!options.sign.empty()) {
        const auto sign = FindStoredSign(options.sign, session.errors);
        if (!sign)
            return ExitCode::failed;
        UseSign(*sign, circumstances);
    }
    circumstances.sign = options.size.value_or(circumstances.sign);
    const std::vector<Input> inputs = FindInputs(options.input, InputKind::playfile, session.errors);
    TimeReport report{.headings = Headings(options.input, session.out)};
    if (options.json)
        report.files.emplace(session.out);
    const ExitCode code = ForEachInput(inputs, session, [&](const Input& input) {
        return timeFile(input.path, options, circumstances, report, session);
    });
    if (report.files) {
        report.files->end();
        session.out << '\n';
    } else if (!report.isEmpty) {
        session.out << (options.steps ? "\n" : "") << report.table;
    }
    return code;
}

} // namespace

void SetUpTimeCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<TimeOptions>();
    SetAction(command, session, options, &timePlayfiles);
    AddInputOptions(command, options->input, "FILES", "The playfiles")->required();
    command
        .add_option(
            "--sign", options->sign,
            "Name of a sign in the list of signs, whose size, type and speeds are used; else those of "
            "the settings")
        ->type_name(kSignValue);
    AddSizeOption(command, options->size, std::numeric_limits<std::int16_t>::max(),
                  "Dots of the sign, from 1x1 to 32767x32767; else the size of --sign or of the settings");
    auto* const steps = command.add_flag("--steps", options->steps,
                                         "Prints each step: a frame comes once for each round of its loop");
    command
        .add_flag("--json", options->json,
                  "Prints an array of objects with \"file\", \"shortest\", \"likely\" and \"longest\" in "
                  "seconds, and \"steps\"")
        ->excludes(steps);
    AddAnswerOptions(command, options->answers);
}

} // namespace qrtVistrelClasses4
