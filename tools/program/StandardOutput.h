// What the program prints, on its way to standard output.
#pragma once

#include "platform/Console.h"

#include <cstddef>
#include <memory>
#include <streambuf>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Writes long texts to standard output in pieces. Once a piece could not be written, nothing more is: a text
/// with a hole in it would look whole.
class StandardOutput final : public std::streambuf {
public:
    static constexpr std::size_t kPieceSize = std::size_t{1} << 20;

    explicit StandardOutput(Console& console) : console_(console) { startPiece(); }
    /// Writes the last piece. False if something could not be written.
    bool finish() {
        handOn();
        return !hasFailed_;
    }

private:
    int_type overflow(int_type next) override {
        handOn();
        return traits_type::eq_int_type(next, traits_type::eof()) ? traits_type::not_eof(next)
                                                                  : sputc(traits_type::to_char_type(next));
    }
    void startPiece() { setp(piece_.get(), piece_.get() + kPieceSize); }
    void handOn() {
        const std::string_view piece(pbase(), static_cast<std::size_t>(pptr() - pbase()));
        hasFailed_ = hasFailed_ || console_.write(StandardStream::output, piece) != SystemError::none;
        startPiece();
    }

    std::unique_ptr<char[]> piece_ = std::make_unique_for_overwrite<char[]>(kPieceSize);
    Console& console_;
    bool hasFailed_ = false;
};

} // namespace qrtVistrelClasses4
