#include "tools/documents/PropertyHelp.h"

#include <regex>

namespace qrtVistrelClasses4 {

PropertyHelp PropertyHelpOf(std::string_view definition, std::string_view interfaceName) {
    const std::size_t start = definition.find("interface " + std::string(interfaceName) + " : ");
    if (start == definition.npos)
        return {};
    const std::string members(definition.substr(start, definition.find("\n    };", start) - start));
    // PROPERTY(100, BSTR, FrameName, "..."); or [propget, id(113), helpstring("...")] HRESULT Name(
    static const std::regex member(
        R"re(PROPERTY\(\d+,\s*\w+,\s*(\w+),\s*"([^"]*)"\)|helpstring\("([^"]*)"\)\]\s*HRESULT\s+(\w+)\()re");
    PropertyHelp help;
    for (std::sregex_iterator at(members.begin(), members.end(), member), end; at != end; ++at)
        if ((*at)[1].matched)
            help.emplace((*at)[1], (*at)[2]);
        else
            help.emplace((*at)[4], (*at)[3]);
    return help;
}

} // namespace qrtVistrelClasses4
