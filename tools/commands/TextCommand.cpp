// vistrel text: texts of signs, and the codes in them.
#include "commands/LegacyVariables.h"
#include "commands/PreviewText.h"
#include "tools/commands/StoredCommands.h"
#include "tools/program/Commands.h"
#include "tools/program/Decimal.h"
#include "tools/program/Encoding.h"
#include "tools/program/Moment.h"
#include "tools/program/PropertyValues.h"

#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct TextOptions {
    std::string text;
    std::optional<Moment> at;
    Decimal<std::int16_t> hours;
};

/// Prints what `make` makes of the text.
template <class Make>
ExitCode print(const TextOptions& options, Session& session, Make make) {
    session.errors.about("TEXT");
    const std::optional<std::string> text = AnsiFromTyped(options.text, session.errors);
    if (!text)
        return ExitCode::wrongUsage;
    session.out << Visible(Utf8FromAnsi(make(*text))) << '\n';
    return ExitCode::done;
}

ExitCode preview(const TextOptions& options, Session& session) {
    return print(options, session, [&](const std::string& text) {
        const ScopedMoment momentScope(options.at);
        return WithStoredCommands(session.errors, [&](const CommandTable& commands) {
            return TextPreviews(commands, options.hours.value).of(text);
        });
    });
}

ExitCode convert(const TextOptions& options, Session& session) {
    return print(options, session, [&](const std::string& text) {
        std::vector<std::string> losses;
        std::string converted = ConvertLegacyVariables(text, losses);
        for (const std::string& loss : losses)
            session.errors.addLoss("not carried over: " + Utf8FromAnsi(loss));
        return converted;
    });
}

} // namespace

void SetUpTextCommand(CLI::App& text, Session& session) {
    const auto options = std::make_shared<TextOptions>();
    text.require_subcommand(1);
    CLI::App& previewCommand = AddCommand(
        text, "preview", "Shows a text as the preview does, with times, dates and variables for codes",
        R"(vistrel text preview "It is |h:m|" --at "2026-11-21 14:30")", session, options, &preview);
    AddMomentOption(previewCommand, options->at);
    previewCommand.add_option("--hours", options->hours, "Hours to add to the times shown")
        ->type_name("NUMBER");
    CLI::App& convertCommand =
        AddCommand(text, "convert", "Replaces placeholders of older playfiles by their codes",
                   "vistrel text convert \"It is {time}\"", session, options, &convert);
    for (CLI::App* command : {&previewCommand, &convertCommand})
        command->add_option("TEXT", options->text, "A text of a sign")->required();
}

} // namespace qrtVistrelClasses4
