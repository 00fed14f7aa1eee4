// The export for other tools.
#pragma once

#include "frame/RuntimeError.h"
#include "playfile/Playfile.h"

#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// What is added to a playfile's name for its export.
inline constexpr const char* kXmlEnding = ".xml";

/// Writes all frames and lines to the file `path`. Returns the error if that fails, which leaves the file
/// that was there as it was.
[[nodiscard]] std::optional<RuntimeError> ExportXml(const Playfile& playfile, const std::string& path);

} // namespace qrtVistrelClasses4
