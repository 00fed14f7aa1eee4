// Files that show the film of a playfile.
#pragma once

#include "tools/preview/FilmOptions.h"
#include "tools/program/Outputs.h"
#include <qrtVistrelClasses4/DisplayRecord.h>
#include <qrtVistrelClasses4/LoadPlayfile.h>
#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>
#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// Which film is wanted, and of which sign.
struct FilmRequest {
    const std::string& path; ///< Of the playfile.
    const std::string& out;  ///< A pattern. With "%n", each frame gets a file.
    const FilmOptions& options;
    const std::optional<DisplayRecord>& sign;
    std::optional<DotSize> size;
    std::int32_t frame = 0; ///< The only one, or 0.
    int scale = 0;          ///< Pixels from one dot to the next; 0 for the usual ones.
};

/// Writes the films of an open playfile. Its losses have not been reported before.
ExitCode PreviewFilm(const FilmRequest& request, const LoadOutcome& opened, Outputs& outputs,
                     Session& session);

} // namespace qrtVistrelClasses4
