// Playfiles of the older format, put together byte by byte.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

struct LegacyFields {
    std::string prefix = "";
    std::int32_t delay = 0;
    std::string text = "";
    std::string suffix = "";
    std::uint8_t font = 0;
    std::string flags = ""; ///< Of the first lines; the others have none.
    std::string reference = "";
};

/// Every byte that the fields leave free holds 0xEE.
inline std::string legacyRecord(const LegacyFields& fields) {
    std::string record(18704, '\xee');
    const auto put = [&](std::size_t place, const std::string& bytes) {
        record.replace(place, bytes.size(), bytes);
    };
    const auto withLength = [](const std::string& text) { return static_cast<char>(text.size()) + text; };
    put(2, withLength(fields.prefix));
    for (std::size_t place = 0; place < 4; ++place)
        record[288 + place] = static_cast<char>(static_cast<std::uint32_t>(fields.delay) >> 8 * place);
    put(292, withLength(fields.text));
    put(804, withLength(fields.suffix));
    record[931] = static_cast<char>(fields.font);
    put(1020, std::string(24, '\0'));
    put(1020, fields.flags);
    put(1044, withLength(fields.reference));
    return record;
}

inline std::string legacyPlayfile(const std::vector<LegacyFields>& frames) {
    std::string file = "PLWREV 1.50";
    for (const LegacyFields& frame : frames)
        file += legacyRecord(frame);
    return file;
}

} // namespace qrtVistrelClasses4
