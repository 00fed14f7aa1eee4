// Texts in a sign's font, drawn on pixels in memory, against box fills, careful code for the same job, and
// the pixels alone.
#include "bench/Dice.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"
#include "fonts/classFontMaster.h"
#include <qrtVistrelClasses4/PixelBuffer.h>

#include <pixman.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <memory>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfLitDots = 1.5;
constexpr double kMostOfAllDots = 2.5;
constexpr double kMostOfBoxes = 0.6;
constexpr double kLitOfCareful = 1.1;
constexpr double kAllOfCareful = 1.2;

constexpr int kTexts = 1000;
constexpr int kLetters = 16;
constexpr std::int16_t kCell = 16;
constexpr std::int16_t kMagnification = 4;
constexpr std::int32_t kWidth = (kLetters * (kCell + 3) + 1) * kMagnification;
constexpr std::int32_t kHeight = kCell * kMagnification;

// Of equal bytes, so that `memset` makes them too.
constexpr Color kUntouched = 0;
constexpr Color kLit = 0x7f7f7f7f;
constexpr Color kDark = 0x01010101;

/// 96 letters of two or three strokes in each row.
Font makeFont() {
    Dice dice;
    Font font{kCell, kCell, {}};
    const auto record = static_cast<std::size_t>(font.recordSize());
    for (std::size_t letter = 0; letter < 96; ++letter) {
        font.characters += static_cast<char>(' ' + letter);
        std::uint8_t* const glyph = &font.store[letter * record];
        glyph[0] = kCell;
        for (std::size_t row = 1; row <= kCell; ++row) {
            glyph[row] = static_cast<std::uint8_t>(0xe0 >> dice.below(3));
            glyph[row + kCell] = static_cast<std::uint8_t>(dice.once(4) ? 0xe7 : 0x0e << dice.below(3));
        }
    }
    return font;
}

std::vector<std::string> makeTexts() {
    Dice dice;
    std::vector<std::string> texts(kTexts);
    for (std::string& text : texts)
        while (text.size() < kLetters)
            text += static_cast<char>(' ' + dice.below(96));
    return texts;
}

/// What `classFontMaster` draws.
class Drawing {
public:
    Drawing(const std::string& path, bool background) : background_(background ? -1 : 0) {
        WriteNewFile(path, HeaderFontBytes(makeFont()));
        Require(fonts_.LoadExistingFont(path, kSizeFromFile, kSizeFromFile), "cannot load " + path);
        fonts_.MagTimes(kMagnification);
        fonts_.FontColor(kLit);
    }
    void draw(const std::string& text, PixelBuffer& pixels) {
        std::int32_t advance = 0;
        fonts_.DrawText(text, pixels, 0, 0, background_, 0, advance);
    }

private:
    classFontMaster fonts_;
    std::int16_t background_;
};

/// The same by hand, for this font and these texts: letters of two bytes a row, in dots of one size.
class CarefulDrawing {
public:
    explicit CarefulDrawing(bool background) : font_(makeFont()), background_(background) {
        glyphs_.fill(kNoGlyph);
        for (std::size_t number = 0; number < font_.characters.size(); ++number)
            glyphs_[static_cast<unsigned char>(font_.characters[number])] =
                number * static_cast<std::size_t>(font_.recordSize());
    }
    void draw(const std::string& text, PixelBuffer& pixels) const {
        std::ptrdiff_t x = kMagnification;
        for (const char character : text) {
            const std::size_t glyph = glyphs_[static_cast<unsigned char>(character)];
            if (glyph == kNoGlyph)
                continue;
            if (x + kCell * kMagnification <= pixels.width() && kHeight <= pixels.height())
                drawLetter(&font_.store[glyph + 1], pixels.row(0).data() + x, pixels.width());
            x += (font_.store[glyph] + kGap) * kMagnification;
        }
    }

private:
    static constexpr std::size_t kNoGlyph = static_cast<std::size_t>(-1);
    static constexpr int kGap = 3; ///< Dots after a letter.

    void drawLetter(const std::uint8_t* rows, Color* place, std::ptrdiff_t width) const {
        for (int row = 0; row < kCell; ++row, place += width * kMagnification) {
            const unsigned dots = rows[row] << 8U | rows[row + kCell];
            if (background_)
                drawAll(dots, place, width);
            else
                drawLit(dots, place, width);
        }
    }
    void drawAll(unsigned dots, Color* place, std::ptrdiff_t width) const {
        for (int dot = kCell - 1; dot >= 0; --dot, place += kMagnification)
            drawSquare(place, width, colors_[dots >> dot & 1U]);
    }
    void drawLit(unsigned dots, Color* place, std::ptrdiff_t width) const {
        for (; dots != 0; dots &= dots - 1)
            drawSquare(place + (kCell - 1 - std::countr_zero(dots)) * kMagnification, width, colors_[1]);
    }
    static void drawSquare(Color* place, std::ptrdiff_t width, Color color) {
        for (int line = 0; line < kMagnification; ++line, place += width)
            std::fill_n(place, kMagnification, color);
    }

    Font font_;
    bool background_;
    std::array<Color, 2> colors_{kDark, kLit};
    std::array<std::size_t, 256> glyphs_{}; ///< Where each character's bytes start.
};

PixelBuffer untouchedPixels() {
    PixelBuffer pixels(kWidth, kHeight, kUntouched);
    pixels.setBackColor(kDark);
    return pixels;
}

/// Pixels of one row that lie side by side.
struct Run {
    std::int32_t x, y, width;
};

template <class Wanted>
std::vector<Run> runsIn(const PixelBuffer& pixels, std::int32_t rowStep, Wanted wanted) {
    std::vector<Run> runs;
    for (std::int32_t y = 0; y < pixels.height(); y += rowStep) {
        const auto row = pixels.row(y);
        for (auto at = row.begin(); (at = std::find_if(at, row.end(), wanted)) != row.end();) {
            const auto end = std::find_if_not(at, row.end(), wanted);
            runs.push_back(
                {static_cast<std::int32_t>(at - row.begin()), y, static_cast<std::int32_t>(end - at)});
            at = end;
        }
    }
    return runs;
}

void setRuns(const std::vector<Run>& runs, PixelBuffer& pixels, Color color) {
    for (const Run& run : runs)
        std::memset(&pixels.row(run.y)[static_cast<std::size_t>(run.x)], static_cast<int>(color & 0xff),
                    static_cast<std::size_t>(run.width) * sizeof(Color));
}

/// The dots of a text as boxes, all of a colour at once.
class Boxes {
public:
    Boxes(const PixelBuffer& picture, Color color)
        : color_{static_cast<std::uint16_t>((color & 0xff) * 0x101),
                 static_cast<std::uint16_t>((color & 0xff) * 0x101),
                 static_cast<std::uint16_t>((color & 0xff) * 0x101),
                 static_cast<std::uint16_t>((color & 0xff) * 0x101)} {
        for (const Run& run :
             runsIn(picture, kMagnification, [color](Color pixel) { return pixel == color; }))
            boxes_.push_back({run.x, run.y, run.x + run.width, run.y + kMagnification});
    }
    void draw(pixman_image_t* image) const {
        pixman_image_fill_boxes(PIXMAN_OP_SRC, image, &color_, static_cast<int>(boxes_.size()),
                                boxes_.data());
    }

private:
    pixman_color_t color_;
    std::vector<pixman_box32_t> boxes_;
};

struct FreeImage {
    void operator()(pixman_image_t* image) const { pixman_image_unref(image); }
};
using Image = std::unique_ptr<pixman_image_t, FreeImage>;

Image imageOn(PixelBuffer& pixels) {
    return Image(pixman_image_create_bits(PIXMAN_a8b8g8r8, pixels.width(), pixels.height(),
                                          pixels.row(0).data(),
                                          pixels.width() * static_cast<int>(sizeof(Color))));
}

/// The work of all texts, ready for each contestant.
struct Work {
    std::vector<std::string> texts = makeTexts();
    std::vector<std::vector<Run>> painted; ///< Every row by itself.
    std::vector<std::vector<Boxes>> boxes; ///< Colour by colour.
};

void checkSame(const PixelBuffer& picture, const PixelBuffer& made, const std::string& what) {
    for (std::int32_t y = 0; y < picture.height(); ++y)
        Require(std::ranges::equal(picture.row(y), made.row(y)), what);
}

std::shared_ptr<const Work> makeWork(Drawing& drawing, bool background) {
    auto work = std::make_shared<Work>();
    for (const std::string& text : work->texts) {
        PixelBuffer picture = untouchedPixels();
        drawing.draw(text, picture);
        work->painted.push_back(runsIn(picture, 1, [](Color pixel) { return pixel != kUntouched; }));
        auto& boxes = work->boxes.emplace_back();
        boxes.emplace_back(picture, kLit);
        if (background)
            boxes.emplace_back(picture, kDark);

        PixelBuffer boxed = untouchedPixels();
        for (const Boxes& ofColor : boxes)
            ofColor.draw(imageOn(boxed).get());
        checkSame(picture, boxed, "boxes make another picture");
        PixelBuffer careful = untouchedPixels();
        CarefulDrawing(background).draw(text, careful);
        checkSame(picture, careful, "careful code makes another picture");
    }
    return work;
}

void registerDrawing(const std::string& name, const std::string& path, bool background) {
    const auto drawing = std::make_shared<Drawing>(path, background);
    const auto work = makeWork(*drawing, background);
    const auto add = [&](const std::string& contestant, auto drawn) {
        RegisterWork(contestant, [drawn, work](benchmark::State& state) {
            PixelBuffer pixels = untouchedPixels();
            TimeWork(state, [&] {
                for (const std::string& text : work->texts)
                    drawn->draw(text, pixels);
            });
        });
    };
    add(name, drawing);
    add(name + "/careful", std::make_shared<const CarefulDrawing>(background));
    RegisterWork(name + "/pixman", [work](benchmark::State& state) {
        PixelBuffer pixels = untouchedPixels();
        const Image image = imageOn(pixels);
        TimeWork(state, [&] {
            for (const auto& boxes : work->boxes)
                for (const Boxes& ofColor : boxes)
                    ofColor.draw(image.get());
        });
    });
    RegisterWork(name + "/limit", [work](benchmark::State& state) {
        PixelBuffer pixels = untouchedPixels();
        TimeWork(state, [&] {
            for (const auto& runs : work->painted)
                setRuns(runs, pixels, kLit);
        });
    });
}

} // namespace

std::vector<Ratio> FontsSubject(const BenchFolder& folder) {
    const std::string path = folder.file("bench.cmd");
    registerDrawing("letters/lit", path, false);
    registerDrawing("letters/all", path, true);
    return {{"draw texts, lit dots", "letters/lit", "letters/lit/pixman", Bound::must, kMostOfBoxes},
            {"draw texts, lit dots", "letters/lit", "letters/lit/limit", Bound::aim, kMostOfLitDots},
            {"draw texts, lit dots", "letters/lit", "letters/lit/careful", Bound::aim, kLitOfCareful},
            {"draw texts, all dots", "letters/all", "letters/all/pixman", Bound::must, kMostOfBoxes},
            {"draw texts, all dots", "letters/all", "letters/all/limit", Bound::aim, kMostOfAllDots},
            {"draw texts, all dots", "letters/all", "letters/all/careful", Bound::aim, kAllOfCareful}};
}

} // namespace qrtVistrelClasses4::bench
