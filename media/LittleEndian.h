// Numbers in the bytes of a file, lowest byte first. The caller checks that the bytes are there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qrtVistrelClasses4 {

inline std::uint8_t ByteAt(std::string_view bytes, std::size_t at) {
    return static_cast<std::uint8_t>(bytes[at]);
}

inline std::uint16_t ShortAt(std::string_view bytes, std::size_t at) {
    return static_cast<std::uint16_t>(ByteAt(bytes, at) | ByteAt(bytes, at + 1) << 8);
}

inline std::uint32_t LongAt(std::string_view bytes, std::size_t at) {
    return ShortAt(bytes, at) | static_cast<std::uint32_t>(ShortAt(bytes, at + 2)) << 16;
}

} // namespace qrtVistrelClasses4
