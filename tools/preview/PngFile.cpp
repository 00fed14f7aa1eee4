#include "tools/preview/PngFile.h"

#include "frame/BufferedText.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <png.h>

#include <array>
#include <csetjmp>
#include <cstdint>
#include <exception>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// Bits of a colour's number.
int depthFor(std::size_t colors) { return colors > 16 ? 8 : colors > 4 ? 4 : colors > 2 ? 2 : 1; }

} // namespace

/// Calls the PNG library, which jumps back to `guarded` after an error. Nothing between has a destructor,
/// since the jump would skip it.
class PngWriter::Encoder {
public:
    Encoder(const Palette& palette, ByteSink& file)
        : palette_(palette), file_(file),
          png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, this, &onError, &ignoreWarning)),
          info_(png_ ? png_create_info_struct(png_) : nullptr) {}
    ~Encoder() { png_destroy_write_struct(&png_, &info_); }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    void start(DotSize size) {
        if (!info_)
            Raise(ErrorNumber::outOfMemory);
        const std::size_t count = palette_.colors().size();
        const int depth = hasNumbers() ? depthFor(count) : 8;
        std::vector<png_color> colors;
        for (const Color color : palette_.colors())
            colors.push_back({RedOf(color), GreenOf(color), BlueOf(color)});
        bytes_.resize(static_cast<std::size_t>(size.width) * (hasNumbers() ? 1 : 3));
        guarded([&] {
            png_set_write_fn(png_, this, &onBytes, nullptr);
            png_set_IHDR(png_, info_, static_cast<png_uint_32>(size.width),
                         static_cast<png_uint_32>(size.height), depth,
                         hasNumbers() ? PNG_COLOR_TYPE_PALETTE : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                         PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
            if (hasNumbers())
                png_set_PLTE(png_, info_, colors.data(), static_cast<int>(count));
            png_set_sRGB(png_, info_, PNG_sRGB_INTENT_PERCEPTUAL);
            png_write_info(png_, info_);
            png_set_packing(png_); // numbers of less than 8 bits
        });
    }

    void writeRow(std::span<const Color> row) {
        if (!hasNumbers())
            putChannels(row);
        else if (!palette_.number(row, bytes_))
            throw RuntimeError(static_cast<int>(ErrorNumber::internalError),
                               "A file that is shown has changed");
        guarded([&] { png_write_row(png_, bytes_.data()); });
    }

    void finish() {
        guarded([&] { png_write_end(png_, info_); });
        file_.finish();
    }

private:
    bool hasNumbers() const { return !palette_.isTooSmall(); }

    void putChannels(std::span<const Color> row) {
        auto place = bytes_.begin();
        for (const Color color : row)
            for (const std::uint8_t channel : {RedOf(color), GreenOf(color), BlueOf(color)})
                *place++ = channel;
    }

    template <class Call>
    void guarded(Call call) {
        if (setjmp(png_jmpbuf(png_)) == 0)
            return call();
        if (fileError_)
            std::rethrow_exception(fileError_);
        throw RuntimeError(static_cast<int>(ErrorNumber::outOfMemory), message_.data());
    }

    static void onError(png_struct* png, const char* message) {
        auto& self = *static_cast<Encoder*>(png_get_error_ptr(png));
        std::string_view(message).copy(self.message_.data(), self.message_.size() - 1);
        png_longjmp(png, 1);
    }
    static void ignoreWarning(png_struct*, const char*) {}

    static void onBytes(png_struct* png, png_byte* bytes, std::size_t size) {
        auto& self = *static_cast<Encoder*>(png_get_io_ptr(png));
        try {
            self.file_.append({reinterpret_cast<const char*>(bytes), size});
            return;
        } catch (...) {
            self.fileError_ = std::current_exception();
        }
        png_error(png, "the file cannot be written");
    }

    const Palette& palette_;
    BufferedText file_;
    std::array<char, 64> message_{};
    std::exception_ptr fileError_;
    png_struct* png_;
    png_info* info_;
    std::vector<std::uint8_t> bytes_; ///< One row: a number a pixel, or its three channels.
};

PngWriter::PngWriter(DotSize size, const Palette& palette, ByteSink& file)
    : encoder_(std::make_unique<Encoder>(palette, file)) {
    encoder_->start(size);
}
PngWriter::~PngWriter() = default;

void PngWriter::write(const Raster& rows) {
    for (std::int32_t y = 0; y < rows.height(); ++y)
        encoder_->writeRow(rows.row(y));
}

void PngWriter::finish() { encoder_->finish(); }

} // namespace qrtVistrelClasses4
