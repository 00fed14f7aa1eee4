// The colours of a picture, by number.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace qrtVistrelClasses4 {

/// Numbers colours from 0, in the order in which the pixels of a picture have them.
class Palette {
public:
    static constexpr std::size_t kMostColors = 256;

    /// Takes the next rows of the picture.
    void add(const Raster& rows) {
        for (std::int32_t y = 0; y < rows.height(); ++y)
            for (const Color color : rows.row(y))
                add(color);
    }
    void add(Color color) {
        if (const std::size_t slot = slotOf(color); slots_[slot].color != color)
            add(color, slot);
    }

    /// True if the picture has more colours than a palette holds. Some of them have no number then.
    bool isTooSmall() const { return isTooSmall_; }
    const std::vector<Color>& colors() const { return colors_; }
    /// Sets the number of each colour. Returns false if no pixel of the picture had one of them.
    bool number(std::span<const Color> colors, std::span<std::uint8_t> numbers) const {
        auto number = numbers.begin();
        for (const Color color : colors) {
            const std::optional<std::uint8_t> found = numberOf(color);
            if (!found)
                return false;
            *number++ = *found;
        }
        return true;
    }
    /// No value if no pixel had the colour.
    std::optional<std::uint8_t> numberOf(Color color) const {
        const Slot& slot = slots_[slotOf(color)];
        return slot.color == color ? std::optional(slot.number) : std::nullopt;
    }

private:
    static constexpr Color kNoColor = 0xffffffff;
    static constexpr std::uint32_t kSpread = 0x9e3779b1; ///< Puts similar colours into slots far apart.
    static constexpr int kShift = 20;

    struct Slot {
        Color color = kNoColor;
        std::uint8_t number = 0;
    };

    void add(Color color, std::size_t slot) {
        isTooSmall_ = colors_.size() == kMostColors;
        if (isTooSmall_)
            return;
        slots_[slot] = {color, static_cast<std::uint8_t>(colors_.size())};
        colors_.push_back(color);
    }

    /// The slot that has the colour, or else the free one for it.
    std::size_t slotOf(Color color) const {
        std::size_t slot = color * kSpread >> kShift;
        while (slots_[slot].color != color && slots_[slot].color != kNoColor)
            slot = (slot + 1) % slots_.size();
        return slot;
    }

    std::array<Slot, 1U << (32 - kShift)> slots_;
    std::vector<Color> colors_;
    bool isTooSmall_ = false;
};

} // namespace qrtVistrelClasses4
