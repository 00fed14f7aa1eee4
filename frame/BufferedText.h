// Writing text to files in large pieces.
#pragma once

#include "frame/Conversions.h"
#include "frame/SystemErrors.h"
#include "platform/FileSystem.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Collects text in a buffer of fixed size and writes it in large pieces. An error of the file is thrown as a
/// run-time error.
class BufferedText {
public:
    /// `file` must outlive this object. The destructor writes nothing; call `finish`.
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
        appendUpTo(kNumberTextSize,
                   [=](char* place) { return std::to_chars(place, place + kNumberTextSize, number).ptr; });
    }
    /// Appends what `put(place)` writes there, of which it returns the end. It may write over `most` bytes,
    /// which must not be more than the buffer holds.
    template <class Put>
    void appendUpTo(std::size_t most, const Put& put) {
        char* const place = room(most);
        used_ += static_cast<std::size_t>(put(place) - place);
    }
    /// Appends the text with each `character` replaced.
    void appendReplacing(std::string_view text, char character, char replacement) {
        if (text.find(character) == text.npos) // as in most
            return append(text);
        while (!text.empty()) {
            const std::string_view piece = text.substr(0, kBufferSize);
            std::replace_copy(piece.begin(), piece.end(), room(piece.size()), character, replacement);
            used_ += piece.size();
            text.remove_prefix(piece.size());
        }
    }

    /// Writes the rest.
    void finish() {
        Check(file_.write({buffer_.get(), used_}));
        used_ = 0;
    }

private:
    /// The place of the next `size` bytes, which must not be more than the buffer holds.
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
