#include "fonts/TextDrawing.h"

#include "fonts/DotPainter.h"
#include "fonts/Letter.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::uint8_t kOneDot = 0x80;

/// Draws the dots as the font holds them: those of the last group may reach beyond the cell.
void drawGroups(const Letter& letter, DotPainter& painter) {
    if (painter.isPastSurface(1 + kMostDrawnColumns, letter.rows()))
        return;
    const int count = std::min(letter.cellWidth(), kDotsInByte);
    for (int group = 0; group < letter.groups(); ++group)
        for (int row = 0; row < letter.rows(); ++row) {
            const auto dots = letter.dots(group, row);
            if (!dots)
                return;
            painter.draw(*dots, count, 1 + group * kDotsInByte, row);
        }
}

/// Whether dots are drawn in the letter's column `firstColumn` or right of it.
bool hasLitDots(const Letter& letter, std::int64_t firstColumn, int firstRow, int lastRow) {
    const int count = std::min(letter.cellWidth(), kDotsInByte);
    for (int group = 0; group < letter.groups(); ++group) {
        const std::int64_t first = std::max<std::int64_t>(firstColumn - std::int64_t{group} * kDotsInByte, 0);
        if (first >= count)
            continue;
        const unsigned drawn = 0xffU >> first & ~(0xffU >> count);
        for (int row = firstRow; row <= lastRow; ++row)
            if (letter.dots(group, row).value_or(0) & drawn)
                return true;
    }
    return false;
}

/// The dots of a group that are in the cell. A group that the font lacks is dark.
std::uint8_t dotsInCell(const Letter& letter, int group, int row) {
    return group < letter.groups() ? letter.dots(group, row).value_or(0) : 0;
}

void drawCell(const Letter& letter, DotPainter& painter) {
    for (int column = 0; column < letter.cellWidth(); column += kDotsInByte)
        for (int row = 0; row < letter.rows(); ++row)
            painter.draw(dotsInCell(letter, column / kDotsInByte, row),
                         std::min(letter.cellWidth() - column, kDotsInByte), 1 + column, row);
}

/// The letter that the end of a text touches.
std::optional<Letter> lastWithWidth(const Font& font, std::string_view text) {
    for (; !text.empty(); text.remove_suffix(1))
        if (const auto letter = Letter::find(font, text.back()); letter && letter->cellWidth() > 0)
            return letter;
    return std::nullopt;
}

/// The dot in the last column of the cell.
std::uint8_t lastDotInCell(const Letter& letter, int row) {
    const int column = letter.cellWidth() - 1;
    return static_cast<std::uint8_t>(dotsInCell(letter, column / kDotsInByte, row) << column % kDotsInByte);
}

std::int64_t widthOf(const Lettering& lettering, const Letter& letter) {
    return std::int64_t{lettering.magnification} * letter.cellWidth();
}

std::unique_ptr<DotPainter> painterAt(const DrawingPlace& place, const Lettering& lettering, Ink lit,
                                      Ink dark) {
    return DotPainter::on(place.target, place.useBitmapDC, Corner(place.x, place.y),
                          {lettering.magnification, lettering.color, lit, dark});
}

std::unique_ptr<DotPainter> letterPainter(const DrawingPlace& place, const Lettering& lettering,
                                          bool drawBackground) {
    return painterAt(place, lettering, Ink::font, drawBackground ? Ink::back : Ink::none);
}

} // namespace

std::int64_t WidthOf(const Lettering& lettering, std::string_view text) {
    std::int64_t width = 0;
    for (const char character : text)
        if (const auto letter = Letter::find(lettering.font, character))
            width += widthOf(lettering, *letter);
    return width;
}

bool HasLitDots(const Font& font, std::string_view text, std::int64_t firstColumn, int firstRow,
                int lastRow) {
    std::int64_t left = 1;
    for (const char character : text) {
        const auto letter = Letter::find(font, character);
        if (!letter)
            continue;
        if (left + kMostDrawnColumns > firstColumn &&
            hasLitDots(*letter, firstColumn - left, firstRow, lastRow))
            return true;
        left += letter->cellWidth();
    }
    return false;
}

DrawnText DrawLetters(const Lettering& lettering, std::string_view text, const DrawingPlace& place,
                      bool drawBackground) {
    std::unique_ptr<DotPainter> painter; // made for the first letter: without one, the target is not used
    DrawnText drawn;
    for (const char character : text) {
        const auto letter = Letter::find(lettering.font, character);
        if (!letter || letter->isMissing())
            drawn.lacking.set(static_cast<unsigned char>(character));
        if (!letter)
            continue;
        if (!painter)
            painter = letterPainter(place, lettering, drawBackground);
        drawGroups(*letter, *painter);
        painter->moveRight(widthOf(lettering, *letter));
        drawn.width += widthOf(lettering, *letter);
    }
    return drawn;
}

void DrawSelection(const Lettering& lettering, std::string_view text, const DrawingPlace& place, int first,
                   int last) {
    const auto painter = painterAt(place, lettering, Ink::back, Ink::font);
    int number = 0;
    for (const char character : text) {
        ++number;
        const auto letter = Letter::find(lettering.font, character);
        if (letter && number >= first && number <= last)
            drawCell(*letter, *painter);
        painter->moveRight(letter ? widthOf(lettering, *letter) : 0);
    }
}

void DrawIndexMarker(const Lettering& lettering, std::string_view text, const DrawingPlace& place, int index,
                     bool isShown) {
    const std::string_view left = text.substr(0, static_cast<std::size_t>(std::max(index - 1, 0)));
    const auto painter = painterAt(place, lettering, Ink::font, Ink::back);
    painter->moveRight(WidthOf(lettering, left));
    const auto covered = lastWithWidth(lettering.font, left);
    for (int row = 0; row < lettering.font.height; ++row) {
        const std::uint8_t below = covered ? lastDotInCell(*covered, row) : std::uint8_t{0};
        painter->draw(isShown ? kOneDot : below, 1, 0, row);
    }
}

} // namespace qrtVistrelClasses4
