#include "tools/fonts/FontGallery.h"

#include "fonts/Letter.h"
#include "tools/program/Encoding.h"
#include "tools/program/Table.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// Letters side by side below their characters. A line of text shows two rows of dots.
class Gallery {
public:
    explicit Gallery(int height)
        : gap_(height > kHighestWithOwnGap ? kGapAfterLetters : 0),
          lines_((static_cast<std::size_t>(height) + 1) / 2) {}

    std::size_t width() const { return WidthOf(characters_); }
    std::size_t widthWith(const LetterPicture& letter) const { return width() + advance(letter); }

    void add(const LetterPicture& letter) {
        const std::size_t columns = advance(letter);
        characters_ += Visible(CharacterText(letter.code)) + std::string(columns - 1, ' ');
        for (std::size_t line = 0; line < lines_.size(); ++line)
            for (std::size_t column = 0; column < columns; ++column)
                lines_[line] += halves(isLit(letter, column, 2 * line), isLit(letter, column, 2 * line + 1));
    }

    friend std::ostream& operator<<(std::ostream& out, const Gallery& gallery) {
        const auto print = [&out](const std::string& line) {
            out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
        };
        out << '\n';
        print(gallery.characters_);
        std::ranges::for_each(gallery.lines_, print);
        return out;
    }

private:
    std::size_t advance(const LetterPicture& letter) const { return letter.rows.front().size() + gap_; }
    static bool isLit(const LetterPicture& letter, std::size_t column, std::size_t row) {
        return row < letter.rows.size() && column < letter.rows[row].size() &&
               letter.rows[row][column] == kLitDot;
    }
    static const char* halves(bool upper, bool lower) {
        return upper ? (lower ? "█" : "▀") : (lower ? "▄" : " ");
    }

    std::size_t gap_;
    std::string characters_;
    std::vector<std::string> lines_;
};

} // namespace

std::string CharacterText(unsigned char code) {
    return Utf8FromAnsi(std::string(1, static_cast<char>(code)));
}

void PrintLetters(std::ostream& out, const FontPictures& font) {
    constexpr std::size_t widest = 78;
    out << font.cell.width << " x " << font.cell.height << " dots, " << font.letters.size() << " letters\n";
    Gallery gallery(font.cell.height);
    for (const LetterPicture& letter : font.letters) {
        if (gallery.width() > 0 && gallery.widthWith(letter) > widest) {
            out << gallery;
            gallery = Gallery(font.cell.height);
        }
        gallery.add(letter);
    }
    if (gallery.width() > 0)
        out << gallery;
}

} // namespace qrtVistrelClasses4
