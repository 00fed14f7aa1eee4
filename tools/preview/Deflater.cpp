#include "tools/preview/Deflater.h"

#include <qrtVistrelClasses4/RuntimeError.h>

#include <zlib.h>

#include <array>
#include <utility>

namespace qrtVistrelClasses4 {

/// Level, strategy and sizes are named here, and zlib looks at nothing else.
struct Deflater::Stream {
    Stream() {
        constexpr int level = 6, windowBits = 15, memoryLevel = 8;
        if (deflateInit2(&zip, level, Z_DEFLATED, windowBits, memoryLevel, Z_DEFAULT_STRATEGY) != Z_OK)
            Raise(ErrorNumber::outOfMemory);
        empty();
    }
    ~Stream() { deflateEnd(&zip); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    void empty() {
        zip.next_out = packed.data();
        zip.avail_out = static_cast<uInt>(packed.size());
    }

    z_stream zip{};
    std::array<Bytef, 32768> packed;
};

Deflater::Deflater(std::function<void(std::string_view piece)> onPiece)
    : onPiece_(std::move(onPiece)), stream_(std::make_unique<Stream>()) {}
Deflater::~Deflater() = default;

void Deflater::append(std::string_view bytes) {
    z_stream& zip = stream_->zip;
    zip.next_in = reinterpret_cast<const Bytef*>(bytes.data());
    zip.avail_in = static_cast<uInt>(bytes.size());
    while (zip.avail_in > 0) {
        deflate(&zip, Z_NO_FLUSH);
        if (zip.avail_out == 0)
            passOn();
    }
}

void Deflater::finish() {
    while (deflate(&stream_->zip, Z_FINISH) != Z_STREAM_END)
        passOn();
    passOn();
}

void Deflater::passOn() {
    const auto& packed = stream_->packed;
    onPiece_({reinterpret_cast<const char*>(packed.data()), packed.size() - stream_->zip.avail_out});
    stream_->empty();
}

} // namespace qrtVistrelClasses4
