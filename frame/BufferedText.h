// Text on its way into a file.
#pragma once

#include "frame/Conversions.h"
#include "frame/RuntimeError.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Collects text in a buffer of fixed size and hands it on in large pieces. A refusal of the file is thrown
/// as its run-time error.
class BufferedText {
public:
    /// `file` must outlive this object. Nothing is written by destroying it; call `finish`.
    explicit BufferedText(ByteSink& file) : file_(file) {}

    void append(std::string_view text) {
        if (text.size() > kBufferSize) [[unlikely]] {
            finish();
            Check(file_.write(text));
            return;
        }
        std::memcpy(room(text.size()), text.data(), text.size());
        used_ += text.size();
    }
    template <std::size_t size>
    void appendLiteral(const char (&literal)[size]) {
        constexpr std::size_t length = size - 1;
        std::memcpy(room(length), literal, length);
        used_ += length;
    }
    void append(std::int32_t number) {
        char* const place = room(kNumberTextSize);
        used_ += static_cast<std::size_t>(std::to_chars(place, place + kNumberTextSize, number).ptr - place);
    }
    /// The text with one character for another.
    void appendReplacing(std::string_view text, char character, char replacement) {
        while (!text.empty()) {
            const std::string_view piece = text.substr(0, kBufferSize);
            std::replace_copy(piece.begin(), piece.end(), room(piece.size()), character, replacement);
            used_ += piece.size();
            text.remove_prefix(piece.size());
        }
    }

    /// Hands on what is left.
    void finish() {
        Check(file_.write({buffer_.get(), used_}));
        used_ = 0;
    }

private:
    /// Where the next bytes go; `size` of them fit, which is at most what the buffer holds.
    char* room(std::size_t size) {
        if (size > kBufferSize - used_) [[unlikely]]
            finish();
        return buffer_.get() + used_;
    }

    static constexpr std::size_t kBufferSize = 65536;

    ByteSink& file_;
    std::size_t used_ = 0;
    std::unique_ptr<char[]> buffer_ = std::make_unique_for_overwrite<char[]>(kBufferSize);
};

} // namespace qrtVistrelClasses4
