// Pages that play films: the pictures come back, and texts stay texts.
#include "tools/preview/FilmPage.h"
#include "platform/memory/KeptBytes.h"
#include "tools/preview/FilmPictures.h"

#include <gtest/gtest.h>
#include <lodepng.h>
#include <nlohmann/json.hpp>

#include <random>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// What a page has in the script with an ID.
std::string scriptOf(const std::string& page, const std::string& id) {
    const std::size_t start = page.find('>', page.find("id=\"" + id + "\"")) + 1;
    return page.substr(start, page.find("</script>", start) - start);
}

std::vector<unsigned char> fromBase64(const std::string& text) {
    const std::string_view characters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::vector<unsigned char> bytes;
    std::uint32_t bits = 0;
    int count = 0;
    for (const char character : text)
        if (const std::size_t digit = characters.find(character); digit != characters.npos) {
            bits = bits << 6 | static_cast<std::uint32_t>(digit);
            if ((count += 6) >= 8)
                bytes.push_back(static_cast<unsigned char>(bits >> (count -= 8)));
        }
    return bytes;
}

/// The pictures of a page, with their times in milliseconds, decoded as `FilmPictures.h` describes them.
struct Decoder {
    std::vector<unsigned char> bytes;
    std::size_t at = 0;

    std::size_t number() {
        std::size_t number = 0;
        for (int shift = 0;; shift += 7) {
            const std::size_t byte = bytes.at(at++);
            number |= byte % 128 << shift;
            if (byte < 128)
                return number;
        }
    }
    Color color(std::vector<Color>& colors) {
        const std::size_t index = number();
        if (index == colors.size()) {
            colors.push_back(Rgb(bytes.at(at), bytes.at(at + 1), bytes.at(at + 2)));
            at += 3;
        }
        return colors.at(index);
    }

    std::vector<std::pair<std::size_t, std::vector<Color>>> pictures(std::size_t size) {
        std::vector<std::pair<std::size_t, std::vector<Color>>> pictures;
        std::vector<Color> colors;
        while (at < bytes.size()) {
            auto picture =
                pictures.empty() ? std::pair(std::size_t{0}, std::vector<Color>(size)) : pictures.back();
            picture.first += number();
            const std::size_t length = number();
            const std::size_t end = at + length;
            if (number() == 1) {
                picture.second.assign(size, 0);
                colors = {0};
            }
            for (std::size_t dot = 0; at < end;) {
                dot += number();
                const std::size_t head = number();
                const Color first = color(colors);
                for (std::size_t i = 0; i < head / 2; ++i)
                    picture.second.at(dot++) = i > 0 && head % 2 == 1 ? color(colors) : first;
            }
            pictures.push_back(picture);
        }
        return pictures;
    }
};

TEST(FilmPage, HoldsEveryPicture) {
    const DotSize size{37, 11};
    KeptBytes file;
    FilmPageFacts facts;
    facts.size = size;
    FilmPage page(facts, file);
    std::vector<std::pair<std::size_t, std::vector<Color>>> wanted;
    std::mt19937 dice(1);
    Raster dots(size.width, size.height);
    for (std::size_t number = 0; number < 3 * FilmPictures::kPicturesFromOneStart; ++number) {
        const auto draw = [&](std::uint32_t below) { return static_cast<std::int32_t>(dice() % below); };
        const Color color = static_cast<Color>(number % 5 == 0 ? 0 : draw(0xffffff));
        dots.fill(draw(37), draw(11), number % 3 == 0 ? 1 : draw(37), draw(11), color);
        dots.row(draw(11))[static_cast<std::size_t>(draw(37))] = static_cast<Color>(draw(300));
        ASSERT_TRUE(page.add(static_cast<double>(number) * 0.017, dots));
        std::vector<Color> all;
        for (std::int32_t y = 0; y < size.height; ++y)
            all.insert(all.end(), dots.row(y).begin(), dots.row(y).end());
        wanted.emplace_back(number * 17, std::move(all));
    }
    page.finish();
    Decoder decoder;
    ASSERT_EQ(lodepng::decompress(decoder.bytes, fromBase64(scriptOf(file.text, "pictures"))), 0U);
    EXPECT_TRUE(decoder.pictures(static_cast<std::size_t>(size.width * size.height)) == wanted);
}

TEST(FilmPage, TextsCannotLeaveTheirPlace) {
    const std::string hostile = R"(</script><script>alert("1")</script><!--\)";
    Playfile playfile;
    playfile.frames.resize(1);
    playfile.frames.at(1).FrameName = hostile;
    PlayTime time;
    time.frames.resize(1);
    FilmPageFacts facts;
    facts.title = hostile + "\u2028\xff";
    facts.frames = {1};
    facts.playfile = &playfile;
    facts.playTime = &time;
    KeptBytes file;
    FilmPage(facts, file).finish();
    const std::string script = scriptOf(file.text, "film");
    EXPECT_EQ(script.find('<'), script.npos);
    const auto film = nlohmann::json::parse(script);
    EXPECT_EQ(film.at("title"), hostile + "\u2028\\xFF");
    EXPECT_EQ(film.at("frames").at(0).at("name"), hostile);
}

TEST(FilmPage, RefusesMoreThanABrowserHolds) {
    KeptBytes file;
    FilmPage page({}, file, 100);
    std::size_t taken = 0;
    while (page.add(0, Raster(0, 0)))
        ++taken;
    EXPECT_EQ(taken, 33U) << "three bytes each";
}

} // namespace
} // namespace qrtVistrelClasses4
