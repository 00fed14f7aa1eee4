#include "tools/preview/JpegSegments.h"

#include "media/LittleEndian.h"

#include <cstddef>
#include <cstdint>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kStartOfJpeg = "\xff\xd8";
constexpr int kMostScans = 100;

constexpr std::uint8_t kMarkerStart = 0xff;
constexpr std::uint8_t kCodeTables = 0xc4, kFirstRestart = 0xd0, kLastRestart = 0xd7, kEnd = 0xd9,
                       kScan = 0xda, kRows = 0xdc, kApplications = 0xe0, kColors = 0xee,
                       kLastApplication = 0xef, kCommentMarker = 0xfe;

/// Notes of cameras and editors, which may be any bytes. Two kinds say how colours are stored.
bool isNote(std::uint8_t marker) {
    return marker == kCommentMarker || marker == kRows ||
           (marker > kApplications && marker <= kLastApplication && marker != kColors);
}

bool areCodesCounted(std::string_view tables) {
    constexpr std::size_t lengths = 16, mostCodes = 256;
    while (!tables.empty()) {
        std::size_t codes = 0;
        if (tables.size() <= lengths)
            return false;
        for (std::size_t length = 1; length <= lengths; ++length)
            codes += ByteAt(tables, length);
        const std::size_t size = 1 + lengths + codes;
        if (codes > mostCodes || size > tables.size())
            return false;
        tables.remove_prefix(size);
    }
    return true;
}

/// Where the next marker is that is not a part of a scan's data.
std::size_t endOfScan(std::string_view bytes, std::size_t at) {
    while ((at = bytes.find(static_cast<char>(kMarkerStart), at)) < bytes.size() - 1) {
        const std::uint8_t next = ByteAt(bytes, at + 1);
        if (next != 0 && next != kMarkerStart && (next < kFirstRestart || next > kLastRestart))
            return at;
        at += next == kMarkerStart ? 1 : 2;
    }
    return bytes.size();
}

} // namespace

std::string CheckedJpeg(std::string_view bytes) {
    if (!bytes.starts_with(kStartOfJpeg))
        return {};
    constexpr std::size_t startSize = 4; // the marker, and how many bytes follow
    std::string checked(kStartOfJpeg);
    int scans = 0;
    for (std::size_t at = kStartOfJpeg.size(); at + 1 < bytes.size() && ByteAt(bytes, at) == kMarkerStart;) {
        const std::uint8_t marker = ByteAt(bytes, at + 1);
        if (marker == kEnd)
            return checked.append(bytes.substr(at, 2));
        if (marker == kMarkerStart) { // any number of these may be before a marker
            ++at;
            continue;
        }
        if (bytes.size() - at < startSize)
            break;
        const std::size_t size = std::size_t{ByteAt(bytes, at + 2)} << 8 | ByteAt(bytes, at + 3);
        std::size_t end = at + 2 + size;
        if (size < 2 || end > bytes.size() ||
            (marker == kCodeTables && !areCodesCounted(bytes.substr(at + startSize, size - 2))) ||
            (marker == kScan && ++scans > kMostScans))
            break;
        if (marker == kScan)
            end = endOfScan(bytes, end);
        if (!isNote(marker))
            checked.append(bytes.substr(at, end - at));
        at = end;
    }
    return {};
}

} // namespace qrtVistrelClasses4
