// Letters and texts: their widths, their dots, and the marks on them.
#include "fonts/FontProcedures.h"
#include "fonts/classFontMaster.h"
#include "frame/Conversions.h"
#include "frame/Traced.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::uint8_t kOneDot = 0x80;

std::int32_t inPixels(std::int64_t width) { return RoundToInt32(static_cast<double>(width)); }

std::string_view firstLetter(std::string_view text) { return text.substr(0, 1); }

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

/// The dots of a group that lie in the cell; all dark where the font has none.
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

/// The dot of the cell's last column.
std::uint8_t lastDotInCell(const Letter& letter, int row) {
    const int column = letter.cellWidth() - 1;
    return static_cast<std::uint8_t>(dotsInCell(letter, column / kDotsInByte, row) << column % kDotsInByte);
}

} // namespace

std::int32_t classFontMaster::GlyphOffset(const std::string& letter) {
    return traced(
        FontFunction("GlyphOffset"), [&] { return letter.empty() ? -1 : font_.glyphOffset(letter.front()); },
        Arg{"letter", letter});
}

void classFontMaster::DrawLetter(const std::string& letter, DrawingTarget& target, float x, float y,
                                 std::int16_t drawBackground, std::int16_t useBitmapDC,
                                 std::int32_t& advance) {
    DrawingTarget* const object = &target;
    advance = 0;
    traced(
        FontSub("DrawLetter"),
        [&] {
            advance = drawLetters(firstLetter(letter), target, {x, y}, drawBackground, useBitmapDC);
        },
        Arg{"letter", letter}, Arg{"target", object}, Arg{"x", x}, Arg{"y", y},
        Arg{"drawBackground", drawBackground}, Arg{"useBitmapDC", useBitmapDC}, Arg{"advance", advance});
}

std::int32_t classFontMaster::LetterWidth(const std::string& letter) {
    return traced(
        FontFunction("LetterWidth"), [&] { return inPixels(widthOf(firstLetter(letter))); },
        Arg{"letter", letter});
}

std::int32_t classFontMaster::TextWidth(const std::string& text) {
    return traced(
        FontFunction("TextWidth"), [&] { return inPixels(widthOf(text)); }, Arg{"text", text});
}

void classFontMaster::DrawText(const std::string& text, DrawingTarget& target, float x, float y,
                               std::int16_t drawBackground, std::int16_t useBitmapDC, std::int32_t& advance) {
    DrawingTarget* const object = &target;
    advance = 0;
    traced(
        FontSub("DrawText"),
        [&] {
            advance = drawLetters(text, target, {x, y}, drawBackground, useBitmapDC);
        },
        Arg{"text", text}, Arg{"target", object}, Arg{"x", x}, Arg{"y", y},
        Arg{"drawBackground", drawBackground}, Arg{"useBitmapDC", useBitmapDC}, Arg{"advance", advance});
}

void classFontMaster::HilightSelection(const std::string& text, DrawingTarget& target, float x, float y,
                                       std::int16_t firstLetter, std::int16_t lastLetter,
                                       std::int16_t useBitmapDC) {
    DrawingTarget* const object = &target;
    traced(
        FontSub("HilightSelection"),
        [&] {
            const auto painter =
                DotPainter::on(target, useBitmapDC, Corner(x, y), dotStyle(Ink::back, Ink::font));
            int number = 0;
            for (const char character : text) {
                ++number;
                const auto letter = Letter::find(font_, character);
                if (letter && number >= firstLetter && number <= lastLetter)
                    drawCell(*letter, *painter);
                painter->moveRight(letter ? widthOf(*letter) : 0);
            }
        },
        Arg{"text", text}, Arg{"target", object}, Arg{"x", x}, Arg{"y", y}, Arg{"firstLetter", firstLetter},
        Arg{"lastLetter", lastLetter}, Arg{"useBitmapDC", useBitmapDC});
}

void classFontMaster::CycleIndexMarker(const std::string& text, DrawingTarget& target, float x, float y,
                                       std::int16_t index, std::int16_t useBitmapDC) {
    DrawingTarget* const object = &target;
    traced(
        FontSub("CycleIndexMarker"),
        [&] {
            const auto before = static_cast<std::size_t>(std::max<int>(index - 1, 0));
            const std::string_view left = std::string_view(text).substr(0, before);
            const auto painter =
                DotPainter::on(target, useBitmapDC, Corner(x, y), dotStyle(Ink::font, Ink::back));
            painter->moveRight(widthOf(left));
            const auto covered = lastWithWidth(font_, left);
            for (int row = 0; row < font_.height; ++row) {
                const std::uint8_t below = covered ? lastDotInCell(*covered, row) : std::uint8_t{0};
                painter->draw(isMarkerShown_ ? below : kOneDot, 1, 0, row);
            }
            isMarkerShown_ = !isMarkerShown_;
        },
        Arg{"text", text}, Arg{"target", object}, Arg{"x", x}, Arg{"y", y}, Arg{"index", index},
        Arg{"useBitmapDC", useBitmapDC});
}

std::int64_t classFontMaster::widthOf(const Letter& letter) const {
    return std::int64_t{magTimes_} * letter.cellWidth();
}

std::int64_t classFontMaster::widthOf(std::string_view text) const {
    std::int64_t width = 0;
    for (const char character : text)
        if (const auto letter = Letter::find(font_, character))
            width += widthOf(*letter);
    return width;
}

std::int32_t classFontMaster::drawLetters(std::string_view text, DrawingTarget& target, Position position,
                                          bool background, bool useBitmapDC) {
    std::unique_ptr<DotPainter> painter;
    std::int64_t width = 0;
    for (const char character : text) {
        const auto letter = Letter::find(font_, character);
        if (!letter)
            continue;
        if (!painter)
            painter = DotPainter::on(target, useBitmapDC, Corner(position.x, position.y),
                                     dotStyle(Ink::font, background ? Ink::back : Ink::none));
        drawGroups(*letter, *painter);
        painter->moveRight(widthOf(*letter));
        width += widthOf(*letter);
    }
    return inPixels(width);
}

} // namespace qrtVistrelClasses4
