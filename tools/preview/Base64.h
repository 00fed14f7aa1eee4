// Bytes as letters, digits and two signs.
#pragma once

#include "frame/BufferedText.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Writes bytes in base64, as many lines as there are pieces.
class Base64 {
public:
    explicit Base64(BufferedText& text) : text_(text) {}

    void append(std::string_view bytes) {
        for (const char byte : bytes) {
            waiting_ = waiting_ << kBitsOfByte | static_cast<unsigned char>(byte);
            if (++count_ == kBytesOfGroup)
                putGroup();
        }
        text_.append("\n");
    }
    void finish() {
        if (count_ == 0)
            return;
        const std::size_t characters = count_ + 1;
        waiting_ <<= kBitsOfByte * (kBytesOfGroup - count_);
        text_.append(std::string_view(group(), characters));
        text_.append(std::string_view("==").substr(characters - 2));
    }

private:
    static constexpr int kBitsOfByte = 8;
    static constexpr int kBitsOfCharacter = 6;
    static constexpr std::size_t kBytesOfGroup = 3;
    static constexpr std::size_t kCharactersOfGroup = 4;
    static constexpr std::string_view kCharacters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

    const char* group() {
        for (std::size_t place = kCharactersOfGroup; place-- > 0; waiting_ >>= kBitsOfCharacter)
            group_[place] = kCharacters[waiting_ % kCharacters.size()];
        return group_.data();
    }
    void putGroup() {
        text_.append(std::string_view(group(), kCharactersOfGroup));
        count_ = 0;
        waiting_ = 0;
    }

    BufferedText& text_;
    std::uint32_t waiting_ = 0;
    std::size_t count_ = 0; ///< Bytes in `waiting_`.
    std::array<char, kCharactersOfGroup> group_{};
};

} // namespace qrtVistrelClasses4
