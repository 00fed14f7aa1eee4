// vistrel text: texts of signs, and the codes in them.
#include "commands/LegacyVariables.h"
#include "commands/PreviewText.h"
#include "platform/Platform.h"
#include "tools/Commands.h"
#include "tools/Decimal.h"
#include "tools/Encoding.h"
#include "tools/PropertyValues.h"

#include <chrono>
#include <istream>
#include <optional>

namespace qrtVistrelClasses4 {
namespace {

/// Not an aggregate: options would take its first number alone, too.
struct Moment {
    Moment() = default;
    LocalTime time;
};

/// None when there is no such day or minute.
std::optional<LocalTime> existing(LocalTime time) {
    const std::chrono::year_month_day day{std::chrono::year(time.year),
                                          std::chrono::month(static_cast<unsigned>(time.month)),
                                          std::chrono::day(static_cast<unsigned>(time.day))};
    const auto within = [](int value, int last) { return value >= 0 && value <= last; };
    if (!day.ok() || !within(time.year, 9999) || !within(time.hour, 23) || !within(time.minute, 59))
        return std::nullopt;
    time.weekday = static_cast<int>(std::chrono::weekday(day).c_encoding());
    return time;
}

/// "2026-11-21 14:30".
std::istream& operator>>(std::istream& in, Moment& moment) {
    const auto pass = [&in](char separator) {
        if (in.get() != separator)
            in.setstate(std::ios::failbit);
    };
    LocalTime typed;
    in >> typed.year, pass('-');
    in >> typed.month, pass('-');
    in >> typed.day, pass(' ');
    in >> typed.hour, pass(':');
    in >> typed.minute;
    if (const auto time = existing(typed); in && time)
        moment.time = *time;
    else
        in.setstate(std::ios::failbit);
    return in;
}

/// A machine whose clock stands still.
class StoppedClock final : public Platform {
public:
    StoppedClock(Platform& machine, const LocalTime& time) : machine_(machine), time_(time) {}

    LocalTime localTime() override { return time_; }

    FileSystem& files() override { return machine_.files(); }
    RegistryStore& registry() override { return machine_.registry(); }
    MessageBoxes& messageBoxes() override { return machine_.messageBoxes(); }
    std::unique_ptr<ProfileFile> openProfile(const std::string& path) override {
        return machine_.openProfile(path);
    }
    std::string systemProfilePath() override { return machine_.systemProfilePath(); }
    std::string libraryFolder() override { return machine_.libraryFolder(); }
    std::optional<std::string> specialFolder(int number) override { return machine_.specialFolder(number); }
    CalendarNames calendarNames() override { return machine_.calendarNames(); }

private:
    Platform& machine_;
    LocalTime time_;
};

struct TextOptions {
    std::string text;
    std::optional<Moment> at;
    Decimal<std::int16_t> hours;
};

std::string previewOf(const std::string& text, const TextOptions& options, ErrorLines& errors) {
    errors.about("the command table cannot be read or saved");
    EveryErrorReporter reporter(errors);
    const ScopedErrorReporter reporterScope(reporter);
    Platform& machine = platform();
    StoppedClock clock(machine, options.at ? options.at->time : machine.localTime());
    const ScopedPlatform platformScope(clock);
    return PreviewText(text, options.hours.value);
}

std::string converted(const std::string& text, const TextOptions&, ErrorLines&) {
    return ConvertLegacyVariables(text);
}

} // namespace

void AddTextCommand(CLI::App& program, Session& session) {
    const auto options = std::make_shared<TextOptions>();
    CLI::App& text = AddCommand(program, "text", "Shows and converts the codes in texts",
                                "vistrel text preview \"It is |h:m|\"");
    text.require_subcommand(1);
    const auto add = [&](const char* name, auto make, const char* description, const char* example) {
        CLI::App& command = AddCommand(text, name, description, example);
        command.add_option("TEXT", options->text, "A text of a sign")->required();
        command.callback([make, options, &session] {
            session.command = [make, options, &session] {
                session.errors.about("TEXT");
                const std::optional<std::string> typed = AnsiFromTyped(options->text, session.errors);
                if (!typed)
                    return ExitCode::wrongUsage;
                session.out << Visible(Utf8FromAnsi(make(*typed, *options, session.errors))) << '\n';
                return ExitCode::done;
            };
        });
        return &command;
    };
    CLI::App* previewCommand = add(
        "preview", &previewOf, "Shows a text as the preview does, with times, dates and variables for codes",
        R"(vistrel text preview "It is |h:m|" --at "2026-11-21 14:30")");
    previewCommand->add_option("--at", options->at, "The moment to show, instead of now")
        ->type_name("\"YYYY-MM-DD HH:MM\"");
    previewCommand->add_option("--hours", options->hours, "Hours that times are ahead of the clock")
        ->type_name("NUMBER");
    add("convert", &converted, "Puts the codes for placeholders of older playfiles",
        "vistrel text convert \"It is {time}\"");
}

} // namespace qrtVistrelClasses4
