// The sentences that describe properties, which the interface definition of the server has.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// By the names of properties, those of one interface of the definition: "_FrameInfoClass".
using PropertyHelp = std::map<std::string, std::string, std::less<>>;
PropertyHelp PropertyHelpOf(std::string_view definition, std::string_view interfaceName);

} // namespace qrtVistrelClasses4
