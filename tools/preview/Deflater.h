// Compressing bytes while they come, as zlib does.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Compresses bytes into pieces of a zlib stream. The same bytes become the same pieces on every machine, as
/// long as the releases of zlib are the same.
class Deflater {
public:
    /// `onPiece` gets each piece as soon as it is full, and the last one from `finish`. Throws error 7
    /// without memory.
    explicit Deflater(std::function<void(std::string_view piece)> onPiece);
    ~Deflater();
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    void append(std::string_view bytes);
    /// Call this once, after all bytes.
    void finish();

private:
    struct Stream;
    void passOn();

    std::function<void(std::string_view piece)> onPiece_;
    std::unique_ptr<Stream> stream_;
};

} // namespace qrtVistrelClasses4
