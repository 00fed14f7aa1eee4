// What is typed for the arguments and options of the program. Help shows the name of a kind, and shells
// complete what it names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

inline constexpr const char* kPlayfileValue = "PLAYFILE";
inline constexpr const char* kOlderPlayfileValue = "PL2FILE";
inline constexpr const char* kFontValue = "FONT";
inline constexpr const char* kFileValue = "FILE";
inline constexpr const char* kFolderValue = "DIR";
inline constexpr const char* kSignValue = "SIGN";
inline constexpr const char* kPropertyValue = "PROPERTY=VALUE";
inline constexpr const char* kFramePropertyValue = "FRAMEPROPERTY=VALUE";
inline constexpr const char* kLinePropertyValue = "LINEPROPERTY=VALUE";
inline constexpr const char* kNewFramePropertyValue = "NEWPROPERTY=VALUE";
inline constexpr const char* kSettingValue = "SETTING";
inline constexpr const char* kCommandValue = "COMMAND";
inline constexpr const char* kRuleValue = "RULE";

/// What a shell offers for a value.
struct OfferedValues {
    enum class Entries { none, files, folders };

    Entries entries = Entries::none;
    std::string endings{}; ///< Of files, with blanks between them: "playfile PL2". Empty: any files.
    std::vector<std::string> words{}; ///< One that ends in "=" is the beginning of a value.
};

/// By the name of the kind; nothing for a kind that shells know nothing about, such as numbers.
OfferedValues ValuesOfKind(std::string_view kind);

} // namespace qrtVistrelClasses4
