// A playfile's frames as JSON, by the names of the library's properties.
#pragma once

#include "playfile/FrameInfoClass.h"
#include "tools/program/ErrorLines.h"

#include <nlohmann/json.hpp>

#include <cstdint>

namespace qrtVistrelClasses4 {

/// All properties of frame `number`. Texts are UTF-8. A property that cannot be read is null and goes to
/// `errors`. Moves the cursors of `playfile`.
nlohmann::ordered_json FramePropertiesJson(FrameInfoClass& playfile, std::int16_t number, ErrorLines& errors);

/// The same with the properties of each of its lines under "Lines".
nlohmann::ordered_json FrameJson(FrameInfoClass& playfile, std::int16_t number, ErrorLines& errors);

} // namespace qrtVistrelClasses4
