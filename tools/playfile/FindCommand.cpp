// vistrel find: a text in the lines of playfiles.
#include "tools/playfile/Opening.h"
#include "tools/playfile/TextSearch.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/JsonText.h"
#include "tools/program/Table.h"

#include <memory>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct FindOptions {
    TextSearchOptions search;
    InputOptions input;
    bool json = false;
};

/// A line with the text.
struct Hit {
    std::string file;       ///< As typed or found in a folder.
    std::int32_t frame = 0; ///< From 1.
    std::int32_t line = 0;  ///< From 1.
    std::string text;
};

void to_json(nlohmann::ordered_json& json, const Hit& hit) {
    json = {{"file", hit.file}, {"frame", hit.frame}, {"line", hit.line}, {"text", Utf8FromAnsi(hit.text)}};
}

/// Adds the lines of the playfile `name` that hold the sought text. What is wrong with the file goes to
/// `errors`; the frames that can be read are searched all the same.
ExitCode findIn(const std::string& name, const TextSearch& search, ErrorLines& errors,
                std::vector<Hit>& hits) {
    const auto opened = OpenWholeFrames(name, {.yes = true}, errors); // nothing is saved
    if (!opened)
        return ExitCode::failed;
    std::int32_t frameNumber = 0;
    for (const FrameRecord& frame : opened->playfile.frames) {
        ++frameNumber;
        std::int32_t lineNumber = 0;
        for (const LineRecord& line : frame.lines) {
            ++lineNumber;
            const std::string& text = line.CurrentLineText;
            if (!search.placesIn(text).empty())
                hits.push_back({name, frameNumber, lineNumber, text});
        }
    }
    return ExitCode::done;
}

void print(std::ostream& out, const std::vector<Hit>& hits, bool json) {
    constexpr auto right = Table::Align::right;
    Table table({{"File"}, {"Frame", right}, {"Line", right}, {"Text"}});
    for (const Hit& hit : hits)
        table.addRow({Visible(InputName(hit.file)), std::to_string(hit.frame), std::to_string(hit.line),
                      VisibleAnsi(hit.text)});
    if (json)
        out << JsonText(nlohmann::ordered_json(hits)) << '\n';
    else if (!hits.empty())
        out << table;
}

ExitCode find(const FindOptions& options, Session& session) {
    const auto search = TextSearch::from(options.search, "TEXT", session.errors);
    if (!search)
        return ExitCode::wrongUsage;
    const std::vector<Input> inputs = FindInputs(options.input, InputKind::playfile, session.errors);
    std::vector<Hit> hits;
    (void)ForEachInput(inputs, session,
                       [&](const Input& input) { return findIn(input.path, *search, session.errors, hits); });
    print(session.out, hits, options.json);
    if (!hits.empty())
        return ExitCode::done;
    session.errors.about(options.search.text);
    if (!inputs.empty())
        session.errors.add("found in no line of " + Counted(inputs.size(), "file"));
    return ExitCode::failed;
}

} // namespace

void SetUpFindCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<FindOptions>();
    SetAction(command, session, options, &find);
    command.add_option("TEXT", options->search.text, "The text, or a part of it, as the playfile holds it")
        ->required();
    AddInputOptions(command, options->input, "FILES", "The playfiles, of either format")->required();
    AddTextSearchOptions(command, options->search);
    command.add_flag("--json", options->json, "Prints an array of the lines found");
}

} // namespace qrtVistrelClasses4
