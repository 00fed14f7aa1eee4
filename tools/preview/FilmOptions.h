// What of a playfile's film goes into a file, as it is typed.
#pragma once

#include "tools/program/Commands.h"
#include "tools/program/NumberSelection.h"

#include <cstdint>
#include <istream>
#include <limits>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// Rounds of loops. Not an aggregate, because options would also accept a number for one.
struct MostRounds {
    MostRounds() = default;
    std::int32_t count = std::numeric_limits<std::int32_t>::max();
};
/// Reads "once", "all" or a number from 1.
std::istream& operator>>(std::istream& in, MostRounds& rounds);

struct FilmOptions {
    NumberSelection frames;
    MostRounds loops;
    int seconds = 0; ///< The most of them; 0 for all.
    int picturesInSecond = 30;
    bool isPlain = false;
    std::vector<const CLI::Option*> all{}; ///< Those that mean nothing for other files.
};

/// Adds "--frames", which excludes `frame`, "--seconds", "--fps", "--loops" and "--plain".
void AddFilmOptions(CLI::App& command, FilmOptions& options, CLI::Option* frame);

/// Whether a file with that name is one that shows a film.
bool IsFilmName(std::string_view path);
/// The same for one that shows it as an animated picture.
bool IsGifName(std::string_view path);

/// False, after adding an error, if one of the options is given for a file that shows no film.
bool AreFilmOptionsUnused(const FilmOptions& options, ErrorLines& errors);

} // namespace qrtVistrelClasses4
