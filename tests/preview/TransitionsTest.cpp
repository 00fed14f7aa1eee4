#include <qrtVistrelClasses4/Transitions.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kOld = Rgb(0, 200, 0);
constexpr Color kNew = Rgb(200, 0, 0);

Raster picture(const std::string& rows, Color color) {
    Raster dots(8, 8);
    for (std::int32_t y = 0; y < 8; ++y)
        for (std::size_t x = 0; x < 8; ++x)
            dots.row(y)[x] = rows[static_cast<std::size_t>(y) * 9 + x] == '.' ? 0 : color;
    return dots;
}
const Raster& before() {
    static const Raster dots =
        picture("oooooooo o....... o....... oooooo.. o....... o....... o....... o.......", kOld);
    return dots;
}
const Raster& after() {
    static const Raster dots =
        picture(".#####.. #.....#. #......# #......# #.#....# #..#...# .#..#.#. ..###.##", kNew);
    return dots;
}

/// "o" for a dot of the old picture, "#" for one of the new picture; darker ones as tenths of the brightness.
char lookOf(Color dot) {
    const int brightest = std::max(RedOf(dot), GreenOf(dot));
    if (dot == 0 || dot == kOld || dot == kNew)
        return dot == kOld ? 'o' : dot == kNew ? '#' : '.';
    return static_cast<char>('0' + brightest * 10 / 200);
}

/// The pictures at a quarter, half and three quarters side by side.
std::vector<std::string> stagesOf(const NamedTransition& effect) {
    constexpr std::size_t width = 28;
    std::vector<std::string> rows(9);
    rows[0] = effect.name;
    for (const double progress : {0.25, 0.5, 0.75}) {
        Raster dots(0, 0);
        effect.transition.draw(progress, before(), after(), dots);
        for (std::int32_t y = 0; y < 8; ++y) {
            std::string& row = rows[static_cast<std::size_t>(y) + 1];
            for (const Color dot : dots.row(y))
                row += lookOf(dot);
            row += ' ';
        }
    }
    for (std::string& row : rows)
        row.resize(width, ' ');
    return rows;
}

/// Five effects side by side. A disappear effect that moves as the appear effect does is left out.
std::string stagesOfAll() {
    std::vector<std::vector<std::string>> blocks;
    for (const auto& effects : {AppearingTransitions(), DisappearingTransitions()})
        for (const NamedTransition& effect : effects) {
            std::vector<std::string> block = stagesOf(effect);
            if (std::ranges::none_of(blocks, [&](const auto& other) {
                    return std::equal(block.begin() + 1, block.end(), other.begin() + 1);
                }))
                blocks.push_back(std::move(block));
        }
    std::string text;
    for (std::size_t first = 0; first < blocks.size(); first += 5)
        for (std::size_t row = 0; row < 9; ++row) {
            std::string line;
            for (std::size_t block = first; block < std::min(first + 5, blocks.size()); ++block)
                line += blocks[block][row];
            text += "\n" + line.substr(0, line.find_last_not_of(' ') + 1);
        }
    return text + "\n";
}

constexpr const char* kStages =
#include "preview/TransitionStages.inc"
    ;

TEST(Transitions, MoveAsTheirNamesSay) { EXPECT_EQ(stagesOfAll(), kStages); }

Raster noise(std::int32_t width, std::int32_t height, unsigned seed) {
    Raster dots(width, height);
    for (std::int32_t y = 0; y < height; ++y)
        for (Color& dot : dots.row(y))
            dot = (seed = seed * 1664525 + 1013904223) >> 8;
    return dots;
}

TEST(Transitions, BeginAndEndWithThePicturesOfAnySize) {
    Raster dots(3, 3);
    for (const auto& effects : {AppearingTransitions(), DisappearingTransitions()})
        for (std::int32_t width = 0; width <= 64; ++width)
            for (std::int32_t height = 0; height <= 64; ++height) {
                const Raster old = noise(width, height, 1);
                const Raster next = noise(width, height, 2);
                for (const NamedTransition& effect : effects) {
                    effect.transition.draw(0, old, next, dots);
                    ASSERT_EQ(dots, old) << effect.name << width << ' ' << height;
                    const int steps = width == height || width <= 1 || height <= 1 ? 4 : 0;
                    for (int step = 1; step < steps; ++step)
                        effect.transition.draw(static_cast<double>(step) / steps, old, next, dots);
                    effect.transition.draw(1, old, next, dots);
                    ASSERT_EQ(dots, next) << effect.name << width << ' ' << height;
                }
            }
}

} // namespace
} // namespace qrtVistrelClasses4
