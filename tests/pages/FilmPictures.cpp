// Prints a line for each picture of a film: a moment at which it is shown, in milliseconds, and the FNV-1a
// hash of its dots. The film is that of 21 November 2026, 14:30. Takes a home and a playfile.
#include "platform/Platform.h"
#include "playfile/ReferenceFinder.h"
#include "tools/playfile/PlayTimes.h"
#include "tools/preview/FilmCut.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include <cmath>
#include <iostream>
#include <numeric>

namespace qrtVistrelClasses4 {
namespace {

Film filmOf(const std::string& path) {
    ErrorLines errors;
    FilmCircumstances circumstances;
    circumstances.timing = LoadPlayTimeCircumstances(errors);
    using namespace std::chrono_literals;
    circumstances.timing.moment = std::chrono::local_days{2026y / 11 / 21} + 14h + 30min;
    Playfile playfile = LoadPlayfile(path, {}).playfile;
    FindPictures(playfile.frames, playfile.fileName);
    return FilmOf(std::move(playfile), circumstances);
}

std::uint32_t hashOf(const Raster& dots) {
    std::uint32_t hash = 0x811c9dc5;
    for (std::int32_t y = 0; y < dots.height(); ++y)
        for (const Color dot : dots.row(y))
            for (const std::uint8_t channel : {RedOf(dot), GreenOf(dot), BlueOf(dot)})
                hash = (hash ^ channel) * 0x01000193;
    return hash;
}

void print(const std::string& path) {
    Film film = filmOf(path), again = filmOf(path);
    std::vector<std::int32_t> all(32767);
    std::iota(all.begin(), all.end(), 1);
    FilmCut(film, all, {}).forEachPicture(1.0 / 30, [&](double from, double until, const Raster&) {
        std::cout << std::llround((from + until) / 2 * 1000) << ' ' << hashOf(again.dotsAt(from)) << '\n';
        return true;
    });
}

} // namespace
} // namespace qrtVistrelClasses4

int main(int, char** arguments) {
    namespace library = qrtVistrelClasses4;
    const auto machine = library::makePlatform({.home = arguments[1]});
    const library::ScopedPlatform scope(*machine);
    library::print(arguments[2]);
}
