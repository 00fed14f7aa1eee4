#include "tools/preview/PngFile.h"

#include "frame/BufferedText.h"
#include "tools/preview/Deflater.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <zlib.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// Bits of a colour's number.
std::size_t depthFor(std::size_t colors) { return colors > 16 ? 8 : colors > 4 ? 4 : colors > 2 ? 2 : 1; }

constexpr std::size_t kBitsOfByte = 8;

/// Red, green and blue of each colour, one after another, written to `place`.
void putChannels(std::span<const Color> colors, char* place) {
    for (const Color color : colors)
        for (const std::uint8_t channel : {RedOf(color), GreenOf(color), BlueOf(color)})
            *place++ = static_cast<char>(channel);
}

/// The bytes of a number, the highest first, as PNG files have all numbers.
std::string bytesOf(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift & 0xff);
    return bytes;
}

const Bytef* zlibBytes(std::string_view bytes) { return reinterpret_cast<const Bytef*>(bytes.data()); }

} // namespace

/// Writes the chunks of a PNG file.
class PngWriter::ChunkWriter {
public:
    explicit ChunkWriter(ByteSink& file) : file_(file) {
        file_.append("\x89PNG\r\n\x1a\n"); // which any change of line ends would damage
    }

    void write(std::string_view name, std::string_view data) {
        uLong checksum = crc32(0, zlibBytes(name), static_cast<uInt>(name.size()));
        if (!data.empty()) // whose address may be null, which would start another checksum
            checksum = crc32(checksum, zlibBytes(data), static_cast<uInt>(data.size()));
        file_.append(bytesOf(static_cast<std::uint32_t>(data.size())));
        file_.append(name);
        file_.append(data);
        file_.append(bytesOf(static_cast<std::uint32_t>(checksum)));
    }
    void finish() { file_.finish(); }

private:
    BufferedText file_;
};

/// Writes each row as the numbers of its colours, or as their channels if they have no numbers.
class PngWriter::Encoder {
public:
    Encoder(DotSize size, const Palette& palette, ByteSink& file)
        : palette_(palette), depth_(hasNumbers() ? depthFor(palette.colors().size()) : kBitsOfByte),
          numbers_(static_cast<std::size_t>(size.width)), chunks_(file),
          rows_([this](std::string_view piece) { chunks_.write("IDAT", piece); }) {
        constexpr char rgb = 2, numbers = 3;
        std::string header = bytesOf(static_cast<std::uint32_t>(size.width)) +
                             bytesOf(static_cast<std::uint32_t>(size.height));
        header += {static_cast<char>(depth_), hasNumbers() ? numbers : rgb};
        header.append(3, '\0'); // compression and filters are the usual ones, and rows are in their order
        chunks_.write("IHDR", header);
        chunks_.write("sRGB", {"\0", 1}); // shown as photographs are
        if (!hasNumbers())
            return;
        std::string colors(palette_.colors().size() * kChannels, '\0');
        putChannels(palette_.colors(), colors.data());
        chunks_.write("PLTE", colors);
    }

    void writeRow(std::span<const Color> row) {
        if (hasNumbers())
            packNumbers(row);
        else
            packChannels(row);
        rows_.append(row_);
    }

    void finish() {
        rows_.finish();
        chunks_.write("IEND", "");
        chunks_.finish();
    }

private:
    static constexpr std::size_t kChannels = 3;

    bool hasNumbers() const { return !palette_.isTooSmall(); }

    void packNumbers(std::span<const Color> row) {
        if (!palette_.number(row, numbers_))
            throw RuntimeError(static_cast<int>(ErrorNumber::internalError),
                               "A file that is shown has changed");
        makeRow((row.size() * depth_ + kBitsOfByte - 1) / kBitsOfByte);
        std::size_t bit = kBitsOfByte;
        for (const std::uint8_t number : numbers_) {
            row_[bit / kBitsOfByte] = static_cast<char>(row_[bit / kBitsOfByte] |
                                                        number << (kBitsOfByte - depth_ - bit % kBitsOfByte));
            bit += depth_;
        }
    }

    void packChannels(std::span<const Color> row) {
        makeRow(row.size() * kChannels);
        putChannels(row, row_.data() + 1);
    }

    /// A row starts with the number of its filter. It is 0, for none: the dots of a sign repeat exactly, and
    /// differences between them do not.
    void makeRow(std::size_t size) { row_.assign(1 + size, '\0'); }

    const Palette& palette_;
    std::size_t depth_;
    std::vector<std::uint8_t> numbers_; ///< Of a row's colours.
    std::string row_;
    ChunkWriter chunks_;
    Deflater rows_;
};

PngWriter::PngWriter(DotSize size, const Palette& palette, ByteSink& file)
    : encoder_(std::make_unique<Encoder>(size, palette, file)) {}
PngWriter::~PngWriter() = default;

void PngWriter::write(const Raster& rows) {
    for (std::int32_t y = 0; y < rows.height(); ++y)
        encoder_->writeRow(rows.row(y));
}

void PngWriter::finish() { encoder_->finish(); }

void WritePng(const Raster& picture, ByteSink& file) {
    Palette palette;
    palette.add(picture);
    PngWriter png(picture.size(), palette, file);
    png.write(picture);
    png.finish();
}

} // namespace qrtVistrelClasses4
