// `SavePictureOfFrame` as scripts know it: a member of the playfile.
#pragma once

#include <cstdint>
#include <string>

namespace qrtVistrelClasses4 {

class FrameInfoClass;

/// Saves a picture of a frame, for an amber sign as large as the playfile says. What it does not show as the
/// playfile wants is logged. False after an error, which is trapped.
bool SavePictureAsMember(const FrameInfoClass& playfile, std::int16_t iFrameNum, const std::string& sFileName,
                         std::int16_t iScale);

} // namespace qrtVistrelClasses4
