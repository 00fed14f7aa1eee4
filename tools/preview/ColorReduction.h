// Fewer colours for a picture that has too many.
#pragma once

#include <qrtVistrelClasses4/Color.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace qrtVistrelClasses4 {

/// Counts the colours of pixels, and finds a few that are like them: the colours are divided into parts,
/// where most pixels differ most, and each part gets its mean colour. The same pixels get the same colours in
/// whatever order they come. Channels are told apart by their five highest bits.
class ColorReduction {
public:
    void count(Color pixel);
    /// At most `most` colours; call this once, when all pixels are counted.
    std::vector<Color> reduce(std::size_t most);
    /// The number, from 0, of the colour that takes the place of a counted one.
    std::uint8_t numberOf(Color pixel) const { return numbers_[cellOf(pixel)]; }

private:
    static constexpr int kBits = 5;
    static constexpr std::size_t kCells = std::size_t{1} << 3 * kBits;

    /// Pixels of like colours.
    struct Cell {
        std::uint64_t pixels = 0;
        std::array<std::uint64_t, 3> sums{}; ///< Of each channel.
    };
    /// Cells that get one colour: some of `used_`.
    struct Part {
        std::size_t first = 0;
        std::size_t last = 0; ///< The one after them.
        std::uint64_t pixels = 0;
        int widest = 0;        ///< The channel that differs most, from 0.
        std::size_t width = 0; ///< By how much.

        std::uint64_t weight() const { return pixels * width; }
    };

    static std::size_t cellOf(Color pixel);
    static std::size_t levelOf(std::size_t cell, int channel);
    Part partOf(std::size_t first, std::size_t last) const;
    /// Divides a part; both halves have cells.
    Part split(Part& part);
    Color meanOf(const Part& part) const;

    std::vector<Cell> cells_ = std::vector<Cell>(kCells);
    std::vector<std::size_t> used_; ///< Numbers of the cells with pixels.
    std::vector<std::uint8_t> numbers_ = std::vector<std::uint8_t>(kCells);
};

} // namespace qrtVistrelClasses4
