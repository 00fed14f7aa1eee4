// `ValidateThisPlayfile` as scripts know it: a member of the playfile.
#pragma once

#include <string>

namespace qrtVistrelClasses4 {

class FrameInfoClass;

/// Validates the playfile as this machine knows its sign, and appends a line for each finding to `sReport`.
/// False if one is an error, or after an error, which is trapped.
bool ValidateAsMember(const FrameInfoClass& playfile, std::string& sReport);

} // namespace qrtVistrelClasses4
