// Playfiles and exports written to any place that takes bytes.
#pragma once

#include "platform/FileSystem.h"
#include <qrtVistrelClasses4/SavePlayfile.h>

#include <optional>

namespace qrtVistrelClasses4 {

/// What `SavePlayfile` writes to a file.
SaveOutcome WritePlayfile(const Playfile& playfile, ByteSink& to,
                          const SaveCircumstances& circumstances = {});

/// What `ExportXml` writes to a file.
[[nodiscard]] std::optional<RuntimeError> WriteXml(const Playfile& playfile, ByteSink& to, XmlForm form);

} // namespace qrtVistrelClasses4
