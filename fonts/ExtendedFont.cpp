#include "fonts/ExtendedFont.h"

#include "fonts/Letter.h"

#include <algorithm>
#include <bitset>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kSignature = "VXF1";
constexpr std::size_t kCountSize = 2;
constexpr std::size_t kPlaceSize = 4;
constexpr std::size_t kEntrySize = 1 + kPlaceSize + 1 + 1; ///< Character, place of the dots, width, height.
constexpr unsigned kBitsInByte = 8;
constexpr std::size_t kDrawnGroups = kMostDrawnColumns / kDotsInByte;

std::uint8_t unsignedAt(std::string_view bytes, std::size_t index) {
    return static_cast<std::uint8_t>(bytes[index]);
}

/// Numbers in the index have their lowest byte first.
std::size_t numberAt(std::string_view bytes, std::size_t index, std::size_t size) {
    std::size_t number = 0;
    for (std::size_t i = size; i-- > 0;)
        number = number << kBitsInByte | unsignedAt(bytes, index + i);
    return number;
}

void addNumber(std::string& bytes, std::size_t number, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i)
        bytes += static_cast<char>(number >> i * kBitsInByte & 0xff);
}

std::size_t sizeOfDots(const ExtendedLetter& letter) {
    return (letter.width + std::size_t{kDotsInByte} - 1) / kDotsInByte * letter.height;
}

} // namespace

std::optional<std::vector<ExtendedLetter>> ParseExtendedFont(std::string_view index, std::string_view dots) {
    const std::size_t start = kSignature.size() + kCountSize;
    if (index.size() < start || !index.starts_with(kSignature))
        return std::nullopt;
    const std::size_t count = numberAt(index, kSignature.size(), kCountSize);
    if (index.size() != start + count * kEntrySize)
        return std::nullopt;
    std::vector<ExtendedLetter> letters(count);
    std::bitset<256> seen;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view entry = index.substr(start + i * kEntrySize, kEntrySize);
        const std::size_t place = numberAt(entry, 1, kPlaceSize);
        ExtendedLetter& letter = letters[i];
        letter = {
            unsignedAt(entry, 0), unsignedAt(entry, 1 + kPlaceSize), unsignedAt(entry, 2 + kPlaceSize), {}};
        const std::size_t size = sizeOfDots(letter);
        if (size == 0 || place > dots.size() || size > dots.size() - place || seen[letter.code])
            return std::nullopt;
        seen.set(letter.code);
        letter.dots = dots.substr(place, size);
    }
    return letters;
}

ExtendedFontFiles ExtendedFontBytes(const std::vector<ExtendedLetter>& letters) {
    ExtendedFontFiles files{std::string(kSignature), {}};
    addNumber(files.index, letters.size(), kCountSize);
    for (const ExtendedLetter& letter : letters) {
        files.index += static_cast<char>(letter.code);
        addNumber(files.index, files.dots.size(), kPlaceSize);
        files.index += static_cast<char>(letter.width);
        files.index += static_cast<char>(letter.height);
        files.dots += letter.dots;
    }
    return files;
}

ExtendedLetters::ExtendedLetters(std::int16_t height)
    : recordSize_(1 + kDrawnGroups * static_cast<std::size_t>(std::max<std::int16_t>(height, 0))) {}

void ExtendedLetters::add(const ExtendedLetter& letter) {
    if (ends_[letter.code] != 0)
        return;
    const std::size_t start = records_.size(), height = (recordSize_ - 1) / kDrawnGroups;
    records_.resize(start + recordSize_);
    ends_[letter.code] = static_cast<std::uint32_t>(records_.size());
    records_[start] = letter.width;
    const std::size_t groups = letter.dots.size() / letter.height;
    for (std::size_t group = 0; group < std::min(groups, kDrawnGroups); ++group)
        for (std::size_t row = 0; row < std::min<std::size_t>(letter.height, height); ++row)
            records_[start + 1 + group * height + row] = unsignedAt(letter.dots, group * letter.height + row);
}

std::optional<std::span<const std::uint8_t>> ExtendedLetters::find(unsigned char code) const {
    const std::size_t end = ends_[code];
    return end == 0 ? std::nullopt
                    : std::optional(std::span(records_).subspan(end - recordSize_, recordSize_));
}

} // namespace qrtVistrelClasses4
