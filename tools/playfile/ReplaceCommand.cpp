// vistrel replace: a text in the lines of playfiles replaced by another.
#include "commands/TextCodes.h"
#include "tools/commands/StoredCommands.h"
#include "tools/playfile/Editing.h"
#include "tools/playfile/TextSearch.h"
#include "tools/program/Commands.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct ReplaceOptions : EditOptions {
    TextSearchOptions search;
    std::string replacement;
};

/// A part of a text.
struct TextSpan {
    std::size_t begin = 0, end = 0;
};

/// Whether `part` has some of `code`, but not all.
bool cuts(const TextSpan& part, const TextSpan& code) {
    const bool touches = part.begin < code.end && code.begin < part.end;
    const bool covers = part.begin <= code.begin && code.end <= part.end;
    return touches && !covers;
}

struct ReplaceCounts {
    std::size_t lines = 0;
    std::size_t replaced = 0;
    std::size_t left = 0; ///< Found in a part of a code, which stays as it is.
};

class Replacement {
public:
    Replacement(TextSearch search, std::string replacement, const TextCodes& codes)
        : search_(std::move(search)), replacement_(std::move(replacement)), codes_(codes) {}

    /// The text after the replacement.
    std::string of(const std::string& text, ReplaceCounts& counts) const {
        std::optional<std::vector<TextSpan>> codes; // most lines have no place
        const auto isWhole = [&](std::size_t at) {
            if (!codes)
                codes = codesIn(text);
            const bool isCut = std::ranges::any_of(*codes, [&](const TextSpan& code) {
                return cuts({at, at + search_.size()}, code);
            });
            counts.left += isCut ? 1 : 0;
            return !isCut;
        };
        std::string result;
        std::size_t copied = 0;
        for (const std::size_t at : search_.placesIn(text, isWhole)) {
            ++counts.replaced;
            result.append(text, copied, at - copied).append(replacement_);
            copied = at + search_.size();
        }
        return result.append(text, copied);
    }

private:
    std::vector<TextSpan> codesIn(std::string_view text) const {
        std::vector<TextSpan> spans;
        for (std::size_t at = 0; (at = codes_.nextStart(text, at)) < text.size();) {
            const std::size_t size = codes_.sizeAtStart(text.substr(at));
            if (size > 0)
                spans.push_back({at, at + size});
            at += std::max<std::size_t>(size, 1);
        }
        return spans;
    }

    TextSearch search_;
    std::string replacement_;
    const TextCodes& codes_;
};

void replaceIn(EditedPlayfile& edited, const Replacement& replacement, ReplaceCounts& all) {
    ReplaceCounts counts;
    for (std::int32_t frame = 1; frame <= edited.frames().upperBound(); ++frame)
        for (std::int32_t line = 1; line <= edited.frames().at(frame).lines.upperBound(); ++line) {
            const std::string& text = edited.frames().at(frame).lines.at(line).CurrentLineText;
            const std::size_t before = counts.replaced;
            std::string replaced = replacement.of(text, counts);
            if (counts.replaced == before)
                continue;
            ++counts.lines;
            edited.change(frame, line,
                          [&](LineRecord& record) { record.CurrentLineText = std::move(replaced); });
        }
    edited.isChanged = !edited.changes().empty();
    if (edited.isChanged)
        edited.done = "replaced " + Counted(counts.replaced, "time") + " in " + Counted(counts.lines, "line");
    if (counts.left > 0)
        edited.done.append(edited.done.empty() ? "left" : ", left")
            .append(" alone " + Counted(counts.left, "place") + " in the middle of codes");
    all.replaced += counts.replaced;
    all.left += counts.left;
}

ExitCode replaceWith(const Replacement& replacement, const ReplaceOptions& options, Session& session) {
    ReplaceCounts counts;
    const ExitCode code = EditPlayfiles(options, session, [&](EditedPlayfile& edited, ErrorLines&) {
        replaceIn(edited, replacement, counts);
    });
    if (code != ExitCode::done || counts.replaced > 0)
        return code;
    session.errors.about(options.search.text);
    session.errors.add(counts.left > 0 ? "found only in the middle of codes, which stay as they are"
                                       : "found in no line of the playfiles");
    return ExitCode::failed;
}

ExitCode replace(const ReplaceOptions& options, Session& session) {
    ErrorLines& errors = session.errors;
    auto search = TextSearch::from(options.search, "OLD", errors);
    if (search && search->size() == 0)
        errors.add("the text to replace is empty");
    errors.about("NEW");
    auto replacement = AnsiFromTyped(options.replacement, errors);
    if (!search || search->size() == 0 || !replacement)
        return ExitCode::wrongUsage;
    return WithStoredCommands(errors, [&](const CommandTable& commands) {
        if (!errors.empty()) // without the table, codes would not be known
            return ExitCode::failed;
        const TextCodes codes(KeysOf(commands));
        return replaceWith({*std::move(search), *std::move(replacement), codes}, options, session);
    });
}

} // namespace

void SetUpReplaceCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<ReplaceOptions>();
    SetAction(command, session, options, &replace);
    command.add_option("OLD", options->search.text, "The text to replace, as the playfile holds it")
        ->required();
    command.add_option("NEW", options->replacement, "What takes its place; \"\" for nothing")->required();
    AddEditOptions(command, *options, References::kept);
    AddTextSearchOptions(command, options->search);
}

} // namespace qrtVistrelClasses4
