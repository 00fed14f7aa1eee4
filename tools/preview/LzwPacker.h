// The compression of GIF files.
#pragma once

#include "frame/BufferedText.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace qrtVistrelClasses4 {

/// Compresses numbers by codes for runs of them that came before, which grow from one bit more than the
/// numbers have up to twelve bits.
class LzwPacker {
public:
    /// `file` must outlive this object.
    explicit LzwPacker(BufferedText& file) : file_(file) {}

    /// Writes numbers below 2 to the power of `bits`, which is from 2 to 8, and there is at least one: the
    /// bits, and blocks of at most 255 bytes with their lengths before them, the last one with none.
    void pack(std::span<const std::uint8_t> numbers, int bits);

private:
    static constexpr int kMostBits = 12;
    static constexpr std::uint32_t kCodes = 1U << kMostBits;
    static constexpr std::size_t kLongestBlock = 255;
    static constexpr std::uint32_t kFree = 0xffffffff;
    static constexpr int kSlotBits = 14; ///< Four slots for a code keep the searches short.

    void startCodes();
    void put(std::uint32_t code);
    void growIfFull();
    void putByte(std::uint8_t byte);
    void finishBlocks();
    std::uint32_t& slotOf(std::uint32_t run);

    BufferedText& file_;
    std::uint32_t clearCode_ = 0;
    std::uint32_t next_ = 0; ///< The code of the next run that is new.
    int codeBits_ = 0;
    std::uint32_t pending_ = 0; ///< Bits that do not fill a byte yet, the first one lowest.
    int pendingBits_ = 0;
    std::array<char, 1 + kLongestBlock> block_{}; ///< Its length, and its bytes.
    std::size_t blockSize_ = 0;
    /// For each run that has a code: the code of all but its last number, that number, and the code.
    std::vector<std::uint32_t> slots_ = std::vector<std::uint32_t>(1U << kSlotBits, kFree);
};

} // namespace qrtVistrelClasses4
