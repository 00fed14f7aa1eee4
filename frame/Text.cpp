#include "frame/Text.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

char upperCase(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

} // namespace

std::string_view Trim(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string UpperCaseAscii(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), upperCase);
    return result;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return upperCase(one) == upperCase(other); });
}

} // namespace qrtVistrelClasses4
