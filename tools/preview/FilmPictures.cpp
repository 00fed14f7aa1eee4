#include "tools/preview/FilmPictures.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Dots of one colour in a row that make a run of their own.
constexpr std::size_t kShortestEvenRun = 4;

void putNumber(std::string& bytes, std::uint64_t number) {
    constexpr int bits = 7;
    constexpr std::uint64_t more = 1U << bits;
    for (; number >= more; number >>= bits)
        bytes += static_cast<char>(number % more + more);
    bytes += static_cast<char>(number);
}

/// How many dots from the start have the colour of the first one. There is one.
std::size_t evenStart(std::span<const Color> dots) {
    return static_cast<std::size_t>(
        std::ranges::find_if(dots, [&](Color dot) { return dot != dots.front(); }) - dots.begin());
}

/// How many dots come before the first long piece of one colour.
std::size_t unevenStart(std::span<const Color> dots) {
    std::size_t size = 0;
    while (size < dots.size()) {
        const std::size_t even = evenStart(dots.subspan(size));
        if (even >= kShortestEvenRun)
            break;
        size += even;
    }
    return size;
}

} // namespace

std::string_view FilmPictures::encode(std::int64_t milliseconds, const Raster& dots) {
    const bool isStart = pictures_++ % kPicturesFromOneStart == 0;
    if (isStart) {
        before_.emplace(dots.width(), dots.height());
        numbers_ = {{0, 0}};
    }
    runs_.assign(1, isStart ? '\1' : '\0');
    putRuns(dots);
    picture_.clear();
    putNumber(picture_, static_cast<std::uint64_t>(milliseconds - millisecondsBefore_));
    putNumber(picture_, runs_.size());
    picture_ += runs_;
    millisecondsBefore_ = milliseconds;
    before_ = dots;
    return picture_;
}

void FilmPictures::putRuns(const Raster& dots) {
    std::size_t skipped = 0;
    for (std::int32_t y = 0; y < dots.height(); ++y) {
        std::span<const Color> now = dots.row(y);
        std::span<const Color> before = std::as_const(*before_).row(y);
        while (!now.empty()) {
            const auto [changed, same] = std::ranges::mismatch(now, before);
            const auto unchanged = static_cast<std::size_t>(changed - now.begin());
            skipped += unchanged;
            now = now.subspan(unchanged);
            before = before.subspan(unchanged);
            std::size_t size = 0;
            while (size < now.size() && now[size] != before[size])
                ++size;
            if (size > 0)
                putRun(std::exchange(skipped, 0), now.first(size));
            now = now.subspan(size);
            before = before.subspan(size);
        }
    }
}

void FilmPictures::putRun(std::size_t skipped, std::span<const Color> dots) {
    while (!dots.empty()) {
        const std::size_t uneven = unevenStart(dots);
        const std::span<const Color> run = dots.first(uneven > 0 ? uneven : evenStart(dots));
        putNumber(runs_, std::exchange(skipped, 0));
        putNumber(runs_, run.size() * 2 + (uneven > 0 ? 1 : 0));
        for (const Color dot : run.first(uneven > 0 ? run.size() : 1))
            putColor(dot);
        dots = dots.subspan(run.size());
    }
}

void FilmPictures::putColor(Color color) {
    const auto [known, isNew] = numbers_.try_emplace(color, numbers_.size());
    putNumber(runs_, known->second);
    if (isNew)
        runs_ += {static_cast<char>(RedOf(color)), static_cast<char>(GreenOf(color)),
                  static_cast<char>(BlueOf(color))};
}

} // namespace qrtVistrelClasses4
