// vistrel show: the frames of a playfile.
#include "tools/exchange/JsonOutput.h"
#include "tools/exchange/PlayfileJson.h"
#include "tools/playfile/FrameNames.h"
#include "tools/playfile/Opening.h"
#include "tools/playfile/PlayTimes.h"
#include "tools/program/Commands.h"
#include "tools/program/Duration.h"
#include "tools/program/Inputs.h"
#include "tools/program/Outputs.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Table.h"

#include <limits>
#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct ShowOptions {
    InputOptions input;
    std::int16_t frame = 0; ///< 0 for all frames.
    bool json = false;
    AnswerOptions answers;
};

/// What play times are worked out from.
struct TimeBasis {
    PlayTimeCircumstances circumstances;
    bool hasErrors = false;
};

TimeBasis loadTimeBasis() {
    ErrorLines errors;
    PlayTimeCircumstances circumstances = LoadPlayTimeCircumstances(errors);
    return {std::move(circumstances), !errors.empty()};
}

/// What the number in a property means; "" for a property that needs no explanation.
template <class Row>
std::string meaningOf(const Row&, const FrameRecord& frame) {
    if constexpr (std::is_same_v<Row, RowOf<&FrameRecord::FrameType>>)
        return KindName(frame);
    else if constexpr (std::is_same_v<Row, RowOf<&FrameRecord::PrefixCode>>)
        return AppearEffectName(frame);
    else if constexpr (std::is_same_v<Row, RowOf<&FrameRecord::SuffixCode>>)
        return DisappearEffectName(frame);
    else
        return {};
}

/// The names of the flags that are on.
std::string flagsOf(const LineRecord& line) {
    std::string result;
    ForEachProperty(line, kLineMembers, [&]<class Row>(const std::string& name, const Row& row, const auto&) {
        if constexpr (std::is_same_v<typename Row::Value, bool>)
            if (row.get(line))
                (result += result.empty() ? "" : ", ") += name;
    });
    return result;
}

/// Reports the properties of a frame that cannot be read.
void reportUnreadable(const FrameRecord& frame, std::int32_t number, ErrorLines& errors) {
    ForEachProperty(frame, kFrameMembers, [&](const std::string& name, const auto& row, const auto&) {
        try {
            (void)row.get(frame);
        } catch (const RuntimeError& error) {
            errors.add("frame " + std::to_string(number) + ", " + name + ": " + TextOf(error));
        }
    });
}

void printFrames(std::ostream& out, const Playfile& playfile) {
    constexpr auto right = Table::Align::right;
    Table table({{"No.", right},
                 {"Name"},
                 {"Kind"},
                 {"Appears"},
                 {"Disappears"},
                 {"Seconds", right},
                 {"Lines", right}});
    std::int32_t number = 0;
    for (const FrameRecord& frame : playfile.frames)
        table.addRow({std::to_string(++number), VisibleAnsi(frame.FrameName), KindName(frame),
                      AppearEffectName(frame), DisappearEffectName(frame), NumberToText(frame.DelayTime),
                      std::to_string(frame.lines.upperBound())});
    out << table;
}

/// What "vistrel time" would report as wrong makes the time uncertain, but is no failure here.
void printLikelyTime(std::ostream& out, const Playfile& playfile, const TimeBasis& basis) {
    const PlayTime time = PlayTimeOf(playfile, basis.circumstances);
    out << "likely play time: " << DurationText(time.total.likely);
    if (basis.hasErrors || time.playback.isCut || !time.faults.empty())
        out << " (uncertain; see \"vistrel time\")";
}

void printSummary(std::ostream& out, const Playfile& playfile, const TimeBasis& basis) {
    const std::int32_t seconds = TotalDelaySeconds(playfile);
    out << '\n'
        << CountUsedFrames(playfile) << " of " << playfile.frames.upperBound() << " frames used ("
        << CountFrames(playfile, NEW_FRAME_TYPES::FRAME_GRAPHIC) << " graphic, "
        << CountFrames(playfile, NEW_FRAME_TYPES::FRAME_TEXT) << " text, "
        << CountFrames(playfile, NEW_FRAME_TYPES::FRAME_GRAPHICTEXT) << " graphic with text, "
        << CountFrames(playfile, NEW_FRAME_TYPES::FRAME_CMD) << " command file)\n"
        << Counted(seconds, "second") << " of delays in all; ";
    printLikelyTime(out, playfile, basis);
    out << '\n';
}

void printFrame(std::ostream& out, const FrameRecord& frame) {
    Table properties({{"Property"}, {"Value"}});
    ForEachProperty(frame, kFrameMembers, [&](const std::string& name, const auto& row, const auto&) {
        const std::string meaning = meaningOf(row, frame);
        properties.addRow(
            {name, CellText(JsonOfProperty(row, frame)) + (meaning.empty() ? "" : " (" + meaning + ")")});
    });
    properties.addRow({std::string(kLineCountKey), std::to_string(frame.lines.upperBound())});
    Table lines(
        {{"Line", Table::Align::right}, {"Font", Table::Align::right}, {"Custom font"}, {"Flags"}, {"Text"}});
    std::int32_t number = 0;
    for (const LineRecord& line : frame.lines)
        lines.addRow({std::to_string(++number), std::to_string(line.LineFontSize),
                      VisibleName(line.LineCustomFont), flagsOf(line), VisibleAnsi(line.CurrentLineText)});
    out << properties << '\n' << lines;
}

/// The JSON of the files.
class ShownJson {
public:
    ShownJson(std::ostream& out, bool areSeveral)
        : target_(std::string(kStandardStream), out), areSeveral_(areSeveral) {
        if (areSeveral)
            json_.beginArray();
    }

    void add(const std::string& path, const Playfile& playfile, std::int32_t first, std::int32_t last) {
        if (areSeveral_) {
            json_.beginObject();
            json_.putKey(kFileKey);
            json_.putPath(path);
            json_.putKey(kFramesKey);
        }
        json_.beginArray();
        for (std::int32_t number = first; number <= last; ++number)
            json_.put(playfile.frames.at(number));
        json_.endArray();
        if (areSeveral_)
            json_.endObject();
        else
            json_.finish();
    }
    void end() {
        if (!areSeveral_)
            return;
        json_.endArray();
        json_.finish();
    }

private:
    OutputTarget target_;
    JsonOutput json_{target_};
    bool areSeveral_;
};

/// Where the files are shown.
struct Display {
    Headings headings;
    std::optional<ShownJson> json{};
    std::optional<TimeBasis> basis{}; ///< Loaded for the first table.
};

ExitCode showFile(const std::string& path, const ShowOptions& options, Display& display, Session& session) {
    const auto opened = OpenWholeFrames(path, YesUnlessNo(options.answers), session.errors,
                                        {.keepsReferences = options.json});
    if (!opened)
        return ExitCode::failed;
    const Playfile& playfile = opened->playfile;
    const std::int32_t count = playfile.frames.upperBound();
    if (options.frame > count) {
        if (count > 0 || !opened->error) // else the error has said enough
            session.errors.add("there is no frame " + std::to_string(options.frame) + ", the last one is " +
                               std::to_string(count));
        return ExitCode::failed;
    }
    const bool isOne = options.frame > 0;
    const std::int32_t first = isOne ? options.frame : 1;
    const std::int32_t last = isOne ? options.frame : count;
    AddLosses(*opened, session.errors, first, last);
    if (display.json) {
        display.json->add(path, playfile, first, last);
        return ExitCode::done;
    }
    for (std::int32_t number = first; number <= last; ++number)
        reportUnreadable(playfile.frames.at(number), number, session.errors);
    if (isOne) {
        display.headings.print(path);
        printFrame(session.out, playfile.frames.at(options.frame));
    } else if (!opened->error || count > 0) {
        display.headings.print(path);
        printFrames(session.out, playfile);
        if (!display.basis)
            display.basis = loadTimeBasis();
        printSummary(session.out, playfile, *display.basis);
    }
    return ExitCode::done;
}

ExitCode show(const ShowOptions& options, Session& session) {
    const std::vector<Input> inputs = FindInputs(options.input, InputKind::playfile, session.errors);
    Display display{Headings(options.input, session.out)};
    if (options.json)
        display.json.emplace(session.out, options.input.areSeveral());
    const ExitCode code = ForEachInput(
        inputs, session, [&](const Input& input) { return showFile(input.path, options, display, session); });
    if (display.json)
        display.json->end();
    return code;
}

} // namespace

void SetUpShowCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<ShowOptions>();
    SetAction(command, session, options, &show);
    AddInputOptions(command, options->input, "FILES", "The playfiles")->required();
    command
        .add_option("--frame", options->frame, "Shows one frame with all its properties and lines; from 1")
        ->check(CLI::Range(1, int{std::numeric_limits<std::int16_t>::max()}));
    command.add_flag(
        "--json", options->json,
        "Prints an array of frames with every property; for several files, an array of objects with "
        "\"file\" and \"frames\"");
    AddAnswerOptions(command, options->answers);
}

} // namespace qrtVistrelClasses4
