#include "platform/CodePage.h"

#include <qrtVistrelClasses4/Utf8.h>

namespace qrtVistrelClasses4 {

bool AreNamesUtf8() { return true; }

std::string TakeCodePageCharacter(std::string_view& name) {
    std::string utf8 = Utf8FromAnsi(name.substr(0, 1));
    name.remove_prefix(1);
    return utf8;
}

std::optional<std::string> CodePageFromUtf8(std::string_view utf8) { return AnsiFromUtf8(utf8); }

} // namespace qrtVistrelClasses4
