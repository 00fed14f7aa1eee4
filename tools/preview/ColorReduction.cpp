#include "tools/preview/ColorReduction.h"

#include <algorithm>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kChannels = 3;
constexpr int kBitsOfChannel = std::numeric_limits<std::uint8_t>::digits;

std::array<std::uint8_t, kChannels> channelsOf(Color color) {
    return {RedOf(color), GreenOf(color), BlueOf(color)};
}

} // namespace

std::size_t ColorReduction::cellOf(Color pixel) {
    std::size_t cell = 0;
    for (const std::uint8_t channel : channelsOf(pixel))
        cell = cell << kBits | static_cast<std::size_t>(channel >> (kBitsOfChannel - kBits));
    return cell;
}

std::size_t ColorReduction::levelOf(std::size_t cell, int channel) {
    const auto shift = static_cast<unsigned>((kChannels - 1 - channel) * kBits);
    return cell >> shift & ((std::size_t{1} << kBits) - 1);
}

void ColorReduction::count(Color pixel) {
    const std::size_t number = cellOf(pixel);
    Cell& cell = cells_[number];
    if (cell.pixels++ == 0)
        used_.push_back(number);
    const auto channels = channelsOf(pixel);
    for (std::size_t channel = 0; channel < channels.size(); ++channel)
        cell.sums.at(channel) += channels.at(channel);
}

ColorReduction::Part ColorReduction::partOf(std::size_t first, std::size_t last) const {
    Part part{first, last};
    for (std::size_t i = first; i < last; ++i)
        part.pixels += cells_[used_[i]].pixels;
    for (int channel = 0; channel < kChannels; ++channel) {
        const auto level = [&](std::size_t cell) { return levelOf(cell, channel); };
        const auto [least, most] =
            std::ranges::minmax_element(used_.begin() + static_cast<std::ptrdiff_t>(first),
                                        used_.begin() + static_cast<std::ptrdiff_t>(last), {}, level);
        if (const std::size_t width = level(*most) - level(*least); width > part.width) {
            part.width = width;
            part.widest = channel;
        }
    }
    return part;
}

ColorReduction::Part ColorReduction::split(Part& part) {
    std::sort(used_.begin() + static_cast<std::ptrdiff_t>(part.first),
              used_.begin() + static_cast<std::ptrdiff_t>(part.last),
              [&](std::size_t left, std::size_t right) {
                  const std::size_t leftLevel = levelOf(left, part.widest);
                  const std::size_t rightLevel = levelOf(right, part.widest);
                  return leftLevel != rightLevel ? leftLevel < rightLevel : left < right;
              });
    std::size_t middle = part.first + 1;
    for (std::uint64_t pixels = cells_[used_[part.first]].pixels; middle + 1 < part.last; ++middle) {
        pixels += cells_[used_[middle]].pixels;
        if (pixels * 2 > part.pixels)
            break;
    }
    const Part rest = partOf(middle, part.last);
    part = partOf(part.first, middle);
    return rest;
}

Color ColorReduction::meanOf(const Part& part) const {
    std::array<std::uint8_t, kChannels> mean{};
    for (std::size_t channel = 0; channel < mean.size(); ++channel) {
        std::uint64_t sum = 0;
        for (std::size_t i = part.first; i < part.last; ++i)
            sum += cells_[used_[i]].sums.at(channel);
        mean.at(channel) = static_cast<std::uint8_t>((sum + part.pixels / 2) / part.pixels);
    }
    return Rgb(mean[0], mean[1], mean[2]);
}

std::vector<Color> ColorReduction::reduce(std::size_t most) {
    std::ranges::sort(used_);
    std::vector<Part> parts{partOf(0, used_.size())};
    while (parts.size() < most) {
        const auto heaviest = std::ranges::max_element(parts, {}, &Part::weight);
        if (heaviest->weight() == 0)
            break;
        const Part rest = split(*heaviest);
        parts.push_back(rest);
    }
    std::vector<Color> colors;
    colors.reserve(parts.size());
    for (const Part& part : parts) {
        for (std::size_t i = part.first; i < part.last; ++i)
            numbers_[used_[i]] = static_cast<std::uint8_t>(colors.size());
        colors.push_back(meanOf(part));
    }
    return colors;
}

} // namespace qrtVistrelClasses4
