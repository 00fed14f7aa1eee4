// The subjects of a validation. Each function adds what it finds, in any order.
#pragma once

#include "validation/Findings.h"
#include <qrtVistrelClasses4/Validation.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

void CheckPlayfile(const Playfile& playfile, const ValidationCircumstances& circumstances,
                   Findings& findings);
void CheckLoops(const Playfile& playfile, Findings& findings);
void CheckEffects(const Playfile& playfile, const ValidationCircumstances& circumstances, Findings& findings);
void CheckFiles(const Playfile& playfile, const ValidationCircumstances& circumstances, Findings& findings);
void CheckTexts(const Playfile& playfile, const ValidationCircumstances& circumstances, Findings& findings);
void CheckNumbers(const Playfile& playfile, const ValidationCircumstances& circumstances, Findings& findings);

/// The name of a member's property, by which findings and messages know it.
template <auto member>
QRT_HIDDEN inline constexpr std::string_view kPropertyOf = kMember<member>.name;

/// The frames of the sign that a playfile can take: their numbers have 16 bits.
inline constexpr std::int64_t kMostDisplayFrames = std::numeric_limits<std::int16_t>::max();

/// Whether the number of the frame's type is that of a kind of frame.
bool IsOfKnownType(const FrameRecord& frame);
/// Whether a line has text that can be seen.
bool HasVisibleText(const LineRecord& line);

/// The text in quotes, cut if it is long.
std::string Quoted(std::string_view text);
/// The path in quotes. A long one is cut before its file name.
std::string QuotedPath(std::string_view path);
/// "128 x 64".
std::string SizeText(DotSize size);
/// "1 line" or "3 lines".
std::string CountText(std::int64_t count, std::string_view one, std::string_view many);

} // namespace qrtVistrelClasses4
