// vistrel show: the frames of a playfile.
#include "playfile/FrameInfoClass.h"
#include "tools/playfile/FrameJson.h"
#include "tools/playfile/Opening.h"
#include "tools/program/Commands.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Table.h"

#include <array>
#include <limits>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

struct ShowOptions {
    std::string file;
    std::int16_t frame = 0; ///< 0: all of them.
    bool json = false;
    AnswerOptions answers;
};

std::string kindName(const ordered_json& frame) {
    constexpr std::array names{"Blank", "Graphic", "Text", "Graphic/Text", "Command"};
    static_assert(static_cast<std::size_t>(NEW_FRAME_TYPES::FRAME_CMD) == names.size() - 1);
    const auto kind = frame["FrameType"].get<std::int32_t>();
    return kind >= 0 && kind < static_cast<std::int32_t>(names.size()) ? names[static_cast<std::size_t>(kind)]
                                                                       : std::to_string(kind);
}

/// `name`, or the code where it has none.
std::string effectName(const std::string& name, std::int16_t code) {
    return name.empty() ? std::to_string(code) : name;
}
std::string appearName(FrameInfoClass& names, const ordered_json& frame) {
    const auto code = frame["PrefixCode"].get<std::int16_t>();
    return effectName(names.ConvertPrefixCodeToString(code), code);
}
std::string disappearName(FrameInfoClass& names, const ordered_json& frame) {
    const auto code = frame["SuffixCode"].get<std::int16_t>();
    return effectName(names.ConvertSuffixCodeToString(code), code);
}

std::string flags(const ordered_json& line) {
    std::string result;
    for (const char* flag : {"Scrolling", "Blinking", "Inverse", "Merge"})
        if (line[flag].get<bool>())
            (result += result.empty() ? "" : ", ") += flag;
    return result;
}

void printFrames(FrameInfoClass& playfile, std::int16_t last, Session& session) {
    constexpr auto right = Table::Align::right;
    Table table({{"No.", right},
                 {"Name"},
                 {"Kind"},
                 {"Appears"},
                 {"Disappears"},
                 {"Seconds", right},
                 {"Lines", right}});
    for (std::int32_t number = 1; number <= last; ++number) {
        const ordered_json frame =
            FramePropertiesJson(playfile, static_cast<std::int16_t>(number), session.errors);
        table.addRow({std::to_string(number), CellText(frame["FrameName"]), kindName(frame),
                      appearName(playfile, frame), disappearName(playfile, frame),
                      CellText(frame["DelayTime"]), CellText(frame["TotalLinesAllowed"])});
    }
    session.out << table;
}

void printSummary(std::ostream& out, FrameInfoClass& playfile, std::int16_t frameCount) {
    out << '\n'
        << playfile.HowManyUsedFramesAreThere() << " of " << frameCount << " frames used ("
        << playfile.HowManyGraphicsAreThere() << " graphic, " << playfile.HowManyTextFramesAreThere()
        << " text, " << playfile.HowManyGraphicTextFramesAreThere() << " graphic with text, "
        << playfile.HowManyCommandFileFramesAreThere() << " command file), "
        << playfile.WhatsTheTotalOfAllDelaysForThisFile() << " seconds in all\n";
}

void printFrame(std::ostream& out, FrameInfoClass& playfile, const ordered_json& frame) {
    Table properties({{"Property"}, {"Value"}});
    for (const auto& [name, value] : frame.items()) {
        if (name == "Lines")
            continue;
        const std::string meaning = name == "FrameType"    ? kindName(frame)
                                    : name == "PrefixCode" ? appearName(playfile, frame)
                                    : name == "SuffixCode" ? disappearName(playfile, frame)
                                                           : "";
        properties.addRow({name, CellText(value) + (meaning.empty() ? "" : " (" + meaning + ")")});
    }
    Table lines(
        {{"Line", Table::Align::right}, {"Font", Table::Align::right}, {"Custom font"}, {"Flags"}, {"Text"}});
    for (std::size_t i = 0; i < frame["Lines"].size(); ++i) {
        const ordered_json& line = frame["Lines"][i];
        lines.addRow({std::to_string(i + 1), CellText(line["LineFontSize"]), CellText(line["LineCustomFont"]),
                      flags(line), CellText(line["CurrentLineText"])});
    }
    out << properties << '\n' << lines;
}

/// An array of frames, one after the other: as JSON they take far more memory than in the playfile.
void printJson(FrameInfoClass& playfile, std::int16_t first, std::int16_t last, Session& session) {
    session.out << '[';
    const char* separator = "\n";
    for (std::int32_t number = first; number <= last; ++number) {
        const std::string text = JsonText(
            ordered_json::array({FrameJson(playfile, static_cast<std::int16_t>(number), session.errors)}));
        const std::string_view brackets("[\n\n]");
        session.out << std::exchange(separator, ",\n")
                    << std::string_view(text).substr(brackets.size() / 2, text.size() - brackets.size());
    }
    session.out << (first <= last ? "\n]\n" : "]\n");
}

/// Number of the last frame that was read. Those behind it, of a file that could not be read to its end, are
/// like a frame without lines that nothing was ever stored in.
std::int16_t lastFrameRead(FrameInfoClass& playfile) {
    FrameInfoClass untouched;
    untouched.TotalFrames(1);
    untouched.CurrentFrame(1);
    untouched.TotalLinesAllowed(0);
    ErrorLines toldWhenShown;
    const ordered_json unread = FramePropertiesJson(untouched, 1, toldWhenShown);
    std::int16_t last = playfile.TotalFrames();
    while (last > 0 && FramePropertiesJson(playfile, last, toldWhenShown) == unread)
        --last;
    return last;
}

ExitCode show(const ShowOptions& options, Session& session) {
    FrameInfoClass playfile;
    playfile.TotalFrames(0); // else its first twenty frames would stand for a file that cannot be read at all
    const bool complete = OpenPlayfile(playfile, options.file, options.answers, session.errors);
    if (!complete && playfile.IsLegacy())
        return ExitCode::failed;
    const std::int16_t expected = playfile.TotalFrames();
    const std::int16_t last = complete ? expected : lastFrameRead(playfile);
    if (!complete && expected > 0)
        session.errors.add("only the first " + std::to_string(last) + " of " + std::to_string(expected) +
                           " frames could be read, the last of them perhaps in part");
    if (options.frame > last) {
        session.errors.add("there is no frame " + std::to_string(options.frame) + ", the last one is " +
                           std::to_string(last));
        return ExitCode::failed;
    }
    const bool isOne = options.frame > 0;
    if (options.json) {
        printJson(playfile, isOne ? options.frame : std::int16_t{1}, isOne ? options.frame : last, session);
    } else if (isOne) {
        printFrame(session.out, playfile, FrameJson(playfile, options.frame, session.errors));
    } else if (complete || last > 0) {
        printFrames(playfile, last, session);
        printSummary(session.out, playfile, last);
    }
    return ExitCode::done;
}

} // namespace

void AddShowCommand(CLI::App& program, Session& session) {
    CLI::App& command = AddCommand(program, "show", "Shows the frames of a playfile",
                                   "vistrel show harbour.playfile --frame 2");
    const auto options = std::make_shared<ShowOptions>();
    command.add_option("FILE", options->file, "The playfile")->required();
    command
        .add_option("--frame", options->frame, "Shows one frame with all its properties and lines; from 1")
        ->check(CLI::Range(1, int{std::numeric_limits<std::int16_t>::max()}));
    command.add_flag("--json", options->json, "Prints an array of frames with every property");
    AddAnswerOptions(command, options->answers);
    command.callback(
        [options, &session] { session.command = [options, &session] { return show(*options, session); }; });
}

} // namespace qrtVistrelClasses4
