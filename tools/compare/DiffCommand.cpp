// vistrel diff: how one playfile became another.
#include "platform/Path.h"
#include "tools/compare/Report.h"
#include "tools/exchange/PlayfileJson.h"
#include "tools/playfile/Opening.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/Outputs.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct DiffOptions {
    std::vector<std::string> names;
    bool json = false;
    bool isForText = false;
    bool isDriver = false;
};

/// One of the two playfiles.
struct Side {
    std::string name; ///< In UTF-8.
    OneBasedArray<FrameRecord> frames;
};

/// Returns nothing, after adding an error, if the playfile cannot be read to its end.
std::optional<Side> sideOf(const std::string& name, ErrorLines& errors) {
    auto opened = OpenPlayfile(name, {.yes = true}, errors, {.keepsReferences = true}); // nothing is saved
    if (!opened || !errors.empty())
        return std::nullopt;
    return Side{InputName(name), std::move(opened->playfile.frames)};
}

void printJsonOf(std::ostream& out, const Side& before, const Side& after, const Differences& differences) {
    OutputTarget target{std::string(kStandardStream), out};
    JsonOutput json(target);
    json.beginObject();
    for (const auto& [key, side] : {std::pair("before", &before), std::pair("after", &after)}) {
        const std::int32_t count = side->frames.upperBound();
        json.putKey(key);
        json.beginObject();
        json.putKey(kFileKey);
        json.putPath(side->name);
        json.putKey(kFramesKey);
        json.put(MemberKind<FrameRecord, std::int32_t>::get(), &count);
        json.endObject();
    }
    json.putKey("changes");
    WriteDifferences(json, differences);
    json.endObject();
    json.finish();
}

void printTextOf(std::ostream& out, const Side& before, const Side& after, const Differences& differences) {
    const auto heading = [&](const char* mark, const Side& side) {
        out << mark << ' ' << Visible(side.name) << ": " << Counted(side.frames.upperBound(), "frame")
            << '\n';
    };
    heading("---", before);
    heading("+++", after);
    PrintDifferences(out, differences);
}

ExitCode compareTwo(const DiffOptions& options, Session& session) {
    const std::optional<Side> before = sideOf(options.names.front(), session.errors);
    const std::optional<Side> after = sideOf(options.names.back(), session.errors);
    if (!before || !after)
        return ExitCode::notCompared;
    const Differences differences = DifferencesBetween(before->frames, after->frames);
    if (options.json)
        printJsonOf(session.out, *before, *after, differences);
    else if (!differences.empty())
        printTextOf(session.out, *before, *after, differences);
    return differences.empty() ? ExitCode::done : ExitCode::different;
}

/// What version control has kept of a playfile. It would stop at a failure, so what is wrong with the file is
/// a part of the text, under the name that the file has in every version.
struct Version {
    OneBasedArray<FrameRecord> frames;
    ErrorLines errors;
};

/// Returns nothing, after adding an error to `errors`, if there is no file to be read.
std::optional<Version> versionOf(const std::string& path, const std::string& name, ErrorLines& errors) {
    LoadOutcome outcome = LoadPlayfile(path, {.keepsReferences = true});
    if (outcome.error && !outcome.error->line) {
        errors.aboutFile(path);
        errors.add(outcome.error->error);
        return std::nullopt;
    }
    Version version;
    version.errors.about(name);
    if (outcome.legacy && !outcome.legacy->hasMark)
        version.errors.add(FaultWithoutLegacyMark(path));
    else
        AddWhatIsMissing(outcome, version.errors);
    version.frames = std::move(outcome.playfile.frames);
    return version;
}

void printErrorsOf(std::ostream& out, const Version& version) {
    for (const std::string& line : version.errors.lines())
        out << Visible(line) << '\n';
}

ExitCode printAsText(const DiffOptions& options, Session& session) {
    const std::string& path = options.names.front();
    const auto version = versionOf(path, std::string(SplitPath(path).name), session.errors);
    if (!version)
        return ExitCode::notCompared;
    PrintFrames(session.out, version->frames);
    printErrorsOf(session.out, *version);
    return ExitCode::done;
}

/// The places of what version control passes to a program that compares two versions of a file.
struct DriverPlace {
    enum : std::size_t { path, oldFile, oldHash, oldMode, newFile, newHash, newMode, newPath, details };
};
constexpr std::size_t kUnmergedCount = 1; ///< Only the path, of a file with versions still to be merged.
constexpr std::size_t kUsualCount = DriverPlace::newPath;
constexpr std::size_t kRenamedCount = DriverPlace::details + 1;

ExitCode compareVersions(const DiffOptions& options, Session& session) {
    const std::vector<std::string>& given = options.names;
    if (given.size() == kUnmergedCount) {
        session.out << "* Unmerged path " << Visible(given[DriverPlace::path]) << '\n';
        return ExitCode::done;
    }
    const auto read = [&](std::size_t file, std::size_t mode, const char* folder, const std::string& name) {
        const bool isThere = given[mode] != "."; // the name of the null device depends on the system
        return std::pair(isThere ? folder + name : "/dev/null",
                         isThere ? versionOf(given[file], name, session.errors) : Version());
    };
    auto [oldName, oldVersion] =
        read(DriverPlace::oldFile, DriverPlace::oldMode, "a/", given[DriverPlace::path]);
    auto [newName, newVersion] =
        read(DriverPlace::newFile, DriverPlace::newMode, "b/",
             given[given.size() == kRenamedCount ? DriverPlace::newPath : DriverPlace::path]);
    if (!oldVersion || !newVersion)
        return ExitCode::notCompared;
    const Differences differences = DifferencesBetween(oldVersion->frames, newVersion->frames);
    printTextOf(session.out, {oldName, std::move(oldVersion->frames)},
                {newName, std::move(newVersion->frames)}, differences);
    printErrorsOf(session.out, *oldVersion);
    printErrorsOf(session.out, *newVersion);
    return ExitCode::done;
}

/// The form of the command that the options ask for.
struct DiffForm {
    ExitCode (*run)(const DiffOptions& options, Session& session);
    std::vector<std::size_t> counts; ///< Of the names that it takes.
    const char* wanted;
};

DiffForm formFor(const DiffOptions& options) {
    if (options.isForText)
        return {&printAsText, {1}, "--textconv takes one playfile"};
    if (options.isDriver)
        return {&compareVersions,
                {kUnmergedCount, kUsualCount, kRenamedCount},
                "--driver takes the 1, 7 or 9 arguments that git passes"};
    return {&compareTwo, {2}, "two playfiles are compared"};
}

ExitCode diff(const DiffOptions& options, Session& session) {
    session.failure = ExitCode::notCompared;
    const DiffForm form = formFor(options);
    if (std::ranges::find(form.counts, options.names.size()) != form.counts.end())
        return form.run(options, session);
    session.errors.about("diff");
    session.errors.add(std::string(form.wanted) + ", not " + std::to_string(options.names.size()));
    return ExitCode::wrongUsage;
}

} // namespace

void SetUpDiffCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<DiffOptions>();
    SetAction(command, session, options, &diff);
    command
        .add_option("FILES", options->names,
                    "The playfile before and the one after, of either format; \"-\" for standard input")
        ->required();
    auto* json = command.add_flag("--json", options->json, "Prints an object with everything that differs");
    auto* text = command.add_flag("--textconv", options->isForText,
                                  "Prints one playfile as lines of text that version control can compare");
    command
        .add_flag("--driver", options->isDriver,
                  "Takes the arguments that git passes to a program that compares for it")
        ->excludes(json)
        ->excludes(text);
    text->excludes(json);
}

} // namespace qrtVistrelClasses4
