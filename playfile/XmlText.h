// Texts in XML documents.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// A text in UTF-8 as the content of an element. XML cannot hold most control characters below 32; the signs
/// that Unicode has for them (U+2400 to U+241F) take their place. What is no character becomes U+FFFD.
std::string XmlText(std::string_view utf8);

} // namespace qrtVistrelClasses4
