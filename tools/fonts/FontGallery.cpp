#include "tools/fonts/FontGallery.h"

#include "fonts/Letter.h"
#include "tools/preview/TerminalPicture.h"
#include "tools/program/Encoding.h"
#include "tools/program/Screen.h"
#include "tools/program/Table.h"
#include <qrtVistrelClasses4/SignLook.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// Letters side by side below their characters.
class Gallery {
public:
    explicit Gallery(int height)
        : gap_(height > kHighestWithOwnGap ? kGapAfterLetters : 0), height_(height) {}

    std::size_t width() const { return WidthOf(characters_); }
    std::size_t widthWith(const LetterPicture& letter) const { return width() + advance(letter); }

    void add(const LetterPicture& letter) {
        letters_.push_back(&letter);
        characters_ += Visible(CharacterText(letter.code)) + std::string(advance(letter) - 1, ' ');
    }

    friend std::ostream& operator<<(std::ostream& out, const Gallery& gallery) {
        Raster dots(static_cast<std::int32_t>(gallery.width()), gallery.height_);
        std::size_t left = 0;
        for (const LetterPicture* letter : gallery.letters_) {
            for (std::int32_t y = 0; y < dots.height(); ++y)
                std::ranges::transform(letter->rows[static_cast<std::size_t>(y)],
                                       dots.row(y).subspan(left).begin(),
                                       [](char dot) { return dot == kLitDot ? kAmber : 0; });
            left += gallery.advance(*letter);
        }
        out << '\n' << gallery.characters_.substr(0, gallery.characters_.find_last_not_of(' ') + 1) << '\n';
        PrintDots(out, dots);
        return out;
    }

private:
    std::size_t advance(const LetterPicture& letter) const { return letter.rows.front().size() + gap_; }

    std::size_t gap_;
    std::int32_t height_;
    std::string characters_;
    std::vector<const LetterPicture*> letters_;
};

} // namespace

std::string CharacterText(unsigned char code) {
    return Utf8FromAnsi(std::string(1, static_cast<char>(code)));
}

void PrintLetters(std::ostream& out, const FontPictures& font) {
    constexpr std::size_t widestInFile = 78;
    const std::size_t widest = ScreenOf(out).columns.value_or(widestInFile);
    std::size_t widestLine = 0;
    out << font.cell.width << " x " << font.cell.height << " dots, " << font.letters.size() << " letters\n";
    Gallery gallery(font.cell.height);
    const auto print = [&] {
        if (gallery.width() > 0)
            out << gallery;
        widestLine = std::max(widestLine, gallery.width());
        gallery = Gallery(font.cell.height);
    };
    for (const LetterPicture& letter : font.letters) {
        if (gallery.widthWith(letter) > widest)
            print();
        gallery.add(letter);
    }
    print();
    PrintWidthNote(out, static_cast<std::int32_t>(widestLine), "");
}

} // namespace qrtVistrelClasses4
