#include "tools/program/FileFault.h"

#include "platform/FileNames.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "playfile/LegacyFormat.h"
#include "tools/program/ErrorLines.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

using namespace std::string_view_literals;

/// A kind of file that starts with `start` and has `more` at `offset`.
struct KnownKind {
    std::string_view start;
    std::size_t offset;
    std::string_view more;
    std::string_view name;
};

constexpr KnownKind kKnownKinds[] = {
    {"BM", 6, "\0\0\0\0"sv, "a BMP picture"},
    {"\x89PNG", 0, {}, "a PNG picture"},
    {"GIF8", 0, {}, "a GIF picture"},
    {"\xff\xd8\xff", 0, {}, "a JPEG picture"},
    {"RIFF", 8, "AVI ", "an AVI animation"},
    {"RIFF", 8, "WAVE", "a sound"},
    {"PK\x03\x04", 0, {}, "a ZIP archive"},
    {"%PDF", 0, {}, "a PDF document"},
    {"\x7f"
     "ELF",
     0,
     {},
     "a program"},
    {"MZ", 0, {}, "a program"},
    {"<?xml", 0, {}, "an XML document"},
    {"<FrameInfo", 0, {}, "an export as XML"},
    {kLegacyMark, 0, {}, "a playfile of the older format, whose name must end in PL2"},
};

std::string startOf(const std::string& path) {
    constexpr std::size_t most = 32;
    std::string start(most, '\0');
    const auto file = platform().files().openToRead(path);
    start.resize(file ? file.value()->readAt(0, start).valueOr(0) : 0);
    return start;
}

/// Why there is nothing under the name `path`.
FileFault faultOfMissing(const std::string& path) {
    if (path.empty())
        return {"the name of the file is empty"};
    FileSystem& files = platform().files();
    if (files.hasEntry(path))
        return {"is a link that leads nowhere", true};
    const auto [above, name] = SplitPath(path);
    if (const std::optional<char> forbidden = ForbiddenInName(name))
        return {std::string("nothing has this name: Windows allows no ") + *forbidden + " in names"};
    std::string folder(above);
    while (folder.size() > 1 && IsPathSeparator(folder.back()))
        folder.pop_back();
    switch (folder.empty() ? EntryKind::folder : files.kindOf(folder)) {
    case EntryKind::folder:
        return {"there is no such file"};
    case EntryKind::missing:
        return {"there is no folder " + folder};
    default:
        return {folder + " is not a folder"};
    }
}

} // namespace

bool StartsLikePlayfile(std::string_view start) {
    const std::size_t digits = std::min(start.find_first_not_of("0123456789", 1), start.size());
    return start.starts_with(' ') && digits > 1 && start.substr(digits).starts_with(" \r\n\"");
}

std::string NoteOfKind(const std::string& path) {
    const std::string start = startOf(path);
    const std::string_view text = start;
    const auto* known = std::ranges::find_if(kKnownKinds, [&](const KnownKind& kind) {
        return text.starts_with(kind.start) && text.size() >= kind.offset &&
               text.substr(kind.offset).starts_with(kind.more);
    });
    if (known != std::end(kKnownKinds))
        return "; the file is " + std::string(known->name);
    return StartsLikePlayfile(text) ? "; the file is a current playfile" : "";
}

FileFault FaultOf(const std::string& path, const RuntimeError& error) {
    using enum ErrorNumber;
    switch (static_cast<ErrorNumber>(error.number())) {
    case fileNotFound:
    case pathNotFound:
    case pathFileAccess:
        break;
    default:
        return {TextOf(error)};
    }
    switch (platform().files().kindOf(path)) {
    case EntryKind::folder:
        return {"is a folder", true};
    case EntryKind::pipe:
        return {"is a pipe, not a file", true};
    case EntryKind::other:
        return {"is a device, not a file", true};
    case EntryKind::missing:
        return error.number() == static_cast<int>(pathFileAccess) ? FileFault{TextOf(error)}
                                                                  : faultOfMissing(path);
    case EntryKind::file:
        break;
    }
    return {TextOf(error)};
}

FileFault FaultOf(const FileError& error, std::string_view place) {
    using enum ErrorNumber;
    const std::string line = "line " + std::to_string(error.line.value_or(0)) + std::string(place);
    switch (static_cast<ErrorNumber>(error.error.number())) {
    case inputPastEnd:
        return {"ends too early: " + line + " is missing", true};
    case typeMismatch:
        return {line + " holds another kind of value than belongs there"};
    case overflow:
        return {line + " holds a number that is too large"};
    case subscriptOutOfRange:
        return {line + " holds a number that is not possible there"};
    default:
        return {line + ": " + TextOf(error.error)};
    }
}

} // namespace qrtVistrelClasses4
