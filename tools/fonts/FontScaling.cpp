#include "tools/fonts/FontScaling.h"

#include "fonts/Letter.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace qrtVistrelClasses4 {
namespace {

struct Step {
    int x, y;
};
constexpr std::array kSides{Step{1, 0}, Step{-1, 0}, Step{0, 1}, Step{0, -1}};
constexpr std::array kCorners{Step{1, 1}, Step{-1, 1}, Step{1, -1}, Step{-1, -1}};

bool isLit(const Picture& letter, int column, int row) {
    return row >= 0 && row < static_cast<int>(letter.size()) && column >= 0 &&
           column < static_cast<int>(letter.front().size()) &&
           letter[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] == kLitDot;
}

/// What a lit dot becomes: a block, or a round joint with halves of slanted strokes. The dots at their other
/// ends draw the other halves.
class Joint {
public:
    Joint(const Picture& letter, int column, int row, int factor) : radius_(factor) {
        for (const Step side : kSides)
            if (isLit(letter, column + side.x, row + side.y))
                sides_.push_back(side);
        for (const Step corner : kCorners)
            if (isLit(letter, column + corner.x, row + corner.y) && !isLit(letter, column + corner.x, row) &&
                !isLit(letter, column, row + corner.y))
                corners_.push_back(corner);
    }

    /// True if the joint covers the point that is `x` right of its middle and `y` below it, in halves of a
    /// dot.
    bool covers(int x, int y) const {
        return (std::abs(x) <= radius_ && std::abs(y) <= radius_ && coversInBlock(x, y)) ||
               std::ranges::any_of(corners_, [&](Step corner) {
                   const int along = x * corner.x + y * corner.y;
                   const int across = x * corner.x - y * corner.y; // both are longer by the square root of 2
                   return along >= 0 && along <= 2 * radius_ && across * across <= 2 * radius_ * radius_;
               });
    }

private:
    bool coversInBlock(int x, int y) const {
        return corners_.empty() || x * x + y * y <= radius_ * radius_ ||
               std::ranges::any_of(sides_, [&](Step side) { return x * side.x + y * side.y >= 0; });
    }

    int radius_; ///< Half a stroke, in halves of a dot.
    std::vector<Step> sides_, corners_;
};

void paint(Picture& large, const Picture& letter, int column, int row, int factor) {
    const Joint joint(letter, column, row, factor);
    const int lastRow = std::min(static_cast<int>(large.size()), (row + 2) * factor);
    const int lastColumn = std::min(static_cast<int>(large.front().size()), (column + 2) * factor);
    for (int y = std::max(0, (row - 1) * factor); y < lastRow; ++y)
        for (int x = std::max(0, (column - 1) * factor); x < lastColumn; ++x)
            if (joint.covers(2 * x + 1 - (2 * column + 1) * factor, 2 * y + 1 - (2 * row + 1) * factor))
                large[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = kLitDot;
}

Picture withoutGap(Picture letter) {
    const bool hasGap = letter.front().size() > 1 && std::ranges::all_of(letter, [](const std::string& row) {
                            return row.back() == kDarkDot;
                        });
    if (hasGap)
        for (std::string& row : letter)
            row.pop_back();
    return letter;
}

} // namespace

Picture Enlarged(const Picture& letter, int factor) {
    const auto times = static_cast<std::size_t>(factor);
    Picture large(letter.size() * times, std::string(letter.front().size() * times, kDarkDot));
    for (int row = 0; row < static_cast<int>(letter.size()); ++row)
        for (int column = 0; column < static_cast<int>(letter.front().size()); ++column)
            if (isLit(letter, column, row))
                paint(large, letter, column, row, factor);
    return large;
}

std::optional<FontPictures> Enlarged(const FontPictures& font, CellSize cell, ErrorLines& errors) {
    if (cell.height % font.cell.height != 0) {
        errors.add("letters " + std::to_string(font.cell.height) + " dots high cannot become " +
                   std::to_string(cell.height) + " high, only a multiple of their height");
        return std::nullopt;
    }
    const int factor = cell.height / font.cell.height;
    const bool loseGap = font.cell.height <= kHighestWithOwnGap && cell.height > kHighestWithOwnGap;
    FontPictures large{cell, font.letters};
    for (LetterPicture& letter : large.letters) {
        if (loseGap)
            letter.rows = withoutGap(std::move(letter.rows));
        const std::size_t width = letter.rows.front().size() * static_cast<std::size_t>(factor);
        if (width > kMostDrawnColumns) {
            errors.add("line " + std::to_string(letter.line) + ": letter " + std::to_string(letter.code) +
                       " would become " + std::to_string(width) + " dots wide, and no more than " +
                       std::to_string(kMostDrawnColumns) + " are drawn");
            return std::nullopt;
        }
        letter.rows = Enlarged(letter.rows, factor);
    }
    return large;
}

} // namespace qrtVistrelClasses4
