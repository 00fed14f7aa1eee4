#include "tools/preview/LzwPacker.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kBitsInByte = std::numeric_limits<std::uint8_t>::digits;

} // namespace

void LzwPacker::pack(std::span<const std::uint8_t> numbers, int bits) {
    const char width = static_cast<char>(bits);
    file_.append({&width, 1});
    clearCode_ = 1U << static_cast<unsigned>(bits);
    startCodes();
    put(clearCode_);
    std::uint32_t code = numbers.front();
    for (const std::uint8_t number : numbers.subspan(1)) {
        const std::uint32_t run = code << static_cast<unsigned>(kBitsInByte) | number;
        std::uint32_t& slot = slotOf(run);
        if (slot != kFree) {
            code = slot % kCodes;
            continue;
        }
        put(code);
        code = number;
        if (next_ < kCodes) {
            slot = run << static_cast<unsigned>(kMostBits) | next_;
            growIfFull();
            ++next_;
        } else {
            put(clearCode_);
            startCodes();
        }
    }
    put(code);
    growIfFull(); // as readers do, to whom this code completes a run, too
    put(clearCode_ + 1);
    finishBlocks();
}

void LzwPacker::startCodes() {
    std::ranges::fill(slots_, kFree);
    next_ = clearCode_ + 2; // after the code of the end
    codeBits_ = 1;
    while (next_ >= 1U << static_cast<unsigned>(codeBits_))
        ++codeBits_;
}

void LzwPacker::growIfFull() {
    if (next_ == 1U << static_cast<unsigned>(codeBits_) && codeBits_ < kMostBits)
        ++codeBits_;
}

std::uint32_t& LzwPacker::slotOf(std::uint32_t run) {
    constexpr std::uint32_t spread = 0x9e3779b1;
    constexpr int shift = std::numeric_limits<std::uint32_t>::digits - kSlotBits;
    std::size_t slot = run * spread >> static_cast<unsigned>(shift);
    while (slots_[slot] != kFree && slots_[slot] >> static_cast<unsigned>(kMostBits) != run)
        slot = (slot + 1) % slots_.size();
    return slots_[slot];
}

void LzwPacker::put(std::uint32_t code) {
    pending_ |= code << static_cast<unsigned>(pendingBits_);
    pendingBits_ += codeBits_;
    for (; pendingBits_ >= kBitsInByte; pendingBits_ -= kBitsInByte) {
        putByte(static_cast<std::uint8_t>(pending_));
        pending_ >>= static_cast<unsigned>(kBitsInByte);
    }
}

void LzwPacker::putByte(std::uint8_t byte) {
    block_.at(++blockSize_) = static_cast<char>(byte);
    if (blockSize_ < kLongestBlock)
        return;
    block_.front() = static_cast<char>(kLongestBlock);
    file_.append(std::string_view(block_.data(), block_.size()));
    blockSize_ = 0;
}

void LzwPacker::finishBlocks() {
    if (pendingBits_ > 0)
        putByte(static_cast<std::uint8_t>(pending_));
    pending_ = 0;
    pendingBits_ = 0;
    if (blockSize_ > 0) {
        block_.front() = static_cast<char>(blockSize_);
        file_.append(std::string_view(block_.data(), 1 + blockSize_));
        blockSize_ = 0;
    }
    file_.append(std::string_view("\0", 1));
}

} // namespace qrtVistrelClasses4
