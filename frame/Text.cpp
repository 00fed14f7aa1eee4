#include "frame/Text.h"

#include <algorithm>

namespace qrtVistrelClasses4 {

std::string_view Trim(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

} // namespace qrtVistrelClasses4
