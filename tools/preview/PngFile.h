// PNG files, written row by row.
#pragma once

#include "platform/FileSystem.h"
#include "tools/preview/Palette.h"
#include <qrtVistrelClasses4/Raster.h>

#include <memory>

namespace qrtVistrelClasses4 {

/// Writes a picture while it is drawn. Its colours must be known before, since they are at the start of a
/// file: few colours make a much smaller one.
class PngWriter {
public:
    /// `palette` has been given all rows of the picture. Both it and `file` must outlive this object. The
    /// functions throw the errors of the file, and error 7 without memory.
    PngWriter(DotSize size, const Palette& palette, ByteSink& file);
    ~PngWriter();
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    /// Writes the next rows, from the top. Throws error 51 for a colour that the palette lacks.
    void write(const Raster& rows);
    /// Writes the end of the file, after all rows.
    void finish();

private:
    class ChunkWriter;
    class Encoder;
    std::unique_ptr<Encoder> encoder_;
};

/// Writes a whole picture.
void WritePng(const Raster& picture, ByteSink& file);

} // namespace qrtVistrelClasses4
