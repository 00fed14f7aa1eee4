// The pictures of a film in few bytes: of most, only what is other than in the one before.
//
//     film     = picture...
//     picture  = start size kind run...
//     run      = skipped head color...
//
// All of these are numbers, with seven bits in each byte, the lowest first; the eighth bit is set in all
// bytes but the last one.
//
// - `start` is in milliseconds since the start of the picture before, or of the film.
// - `size` is the number of the bytes that follow it up to the next picture.
// - `kind` is 1 for a picture that needs no other: all dots are dark, and colour 0, which is dark, is the
// only
//   one. It is 0 for one that changes the picture before. The first one is of kind 1.
// - Dots are counted row by row. `skipped` dots stay as they are, counted from the end of the run before.
// - `head` is twice the number of the dots in the run, plus 1 if each has a colour of its own. Otherwise one
//   colour follows, which all of them have.
// - `color` is the number of a colour. The first number that has none yet is followed by the red, green and
//   blue of its colour, a byte each.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qrtVistrelClasses4 {

/// Turns one picture after another into these bytes. Takes as much memory however many there are.
class FilmPictures {
public:
    /// Every so many pictures, one needs no other, so that any moment can be found fast.
    static constexpr std::size_t kPicturesFromOneStart = 64;

    /// The bytes of the next picture, which starts at `milliseconds` after the start of the film, not before
    /// the one before. All pictures have the same size. Valid until the next call.
    std::string_view encode(std::int64_t milliseconds, const Raster& dots);

private:
    void putRuns(const Raster& dots);
    /// Puts a run of dots that are others than before; `skipped` dots before it are not.
    void putRun(std::size_t skipped, std::span<const Color> dots);
    void putColor(Color color);

    std::optional<Raster> before_;
    std::int64_t millisecondsBefore_ = 0;
    std::size_t pictures_ = 0;
    std::unordered_map<Color, std::size_t> numbers_;
    std::string runs_;
    std::string picture_;
};

} // namespace qrtVistrelClasses4
