#include "tools/preview/FilmOptions.h"

#include "tools/program/Outputs.h"

#include <charconv>
#include <string>

namespace qrtVistrelClasses4 {

std::istream& operator>>(std::istream& in, MostRounds& rounds) {
    std::string typed;
    in >> typed;
    if (typed == "all")
        return in;
    if (typed == "once") {
        rounds.count = 1;
        return in;
    }
    const char* const end = typed.data() + typed.size();
    const auto [stop, error] = std::from_chars(typed.data(), end, rounds.count);
    if (error != std::errc() || stop != end || rounds.count < 1)
        in.setstate(std::ios::failbit);
    return in;
}

void AddFilmOptions(CLI::App& command, FilmOptions& options, CLI::Option* frame) {
    constexpr int secondsOfDay = 86400, mostPictures = 50;
    options.all = {
        command
            .add_option("--frames", options.frames,
                        std::string("The frames that a film shows, ") + kSelectionHelp + "; else all")
            ->type_name("NUMBERS")
            ->excludes(frame),
        command.add_option("--seconds", options.seconds, "The most seconds of a film; else all")
            ->check(CLI::Range(1, secondsOfDay)),
        command
            .add_option("--fps", options.picturesInSecond, "The most pictures of a film in a second; else 30")
            ->check(CLI::Range(1, mostPictures)),
        command
            .add_option("--loops", options.loops,
                        "The most rounds of each loop in a film: once, all or a number")
            ->type_name("ROUNDS"),
        command.add_flag("--plain", options.isPlain, "Shows a film as plain dots instead of LEDs")};
}

bool IsGifName(std::string_view path) { return EndingOf(path) == ".gif"; }
bool IsFilmName(std::string_view path) { return IsGifName(path) || EndingOf(path) == ".html"; }

bool AreFilmOptionsUnused(const FilmOptions& options, ErrorLines& errors) {
    for (const CLI::Option* option : options.all)
        if (option->count() > 0) {
            errors.about(option->get_name());
            errors.add("is for films, which --out writes into a file ending in .gif or .html");
            return false;
        }
    return true;
}

} // namespace qrtVistrelClasses4
