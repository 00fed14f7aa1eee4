#include "playfile/LegacyFormat.h"

#include "frame/SystemErrors.h"
#include "frame/Text.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include <qrtVistrelClasses4/MemberTable.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>
#include <span>
#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kWidthMark = "Width=";

/// A field of a record, `size` bytes from `offset` on.
template <class Value>
struct LegacyField {
    std::size_t offset;
    std::size_t size;
    Value LegacyRecord::*member;
};
template <class Value>
LegacyField(std::size_t, std::size_t, Value LegacyRecord::*) -> LegacyField<Value>;

constexpr std::tuple kFields{
    LegacyField{2, 21, &LegacyRecord::prefixKeyword},
    LegacyField{288, 4, &LegacyRecord::delay},
    LegacyField{292, 256, &LegacyRecord::text},
    LegacyField{804, 21, &LegacyRecord::suffixKeyword},
    LegacyField{931, 1, &LegacyRecord::fontCode},
    LegacyField{1020, kLegacyFlagCount, &LegacyRecord::lineFlags},
    LegacyField{1044, 80, &LegacyRecord::reference},
};

std::uint8_t byteAt(std::string_view bytes, std::size_t place) {
    return static_cast<std::uint8_t>(bytes[place]);
}

/// The first byte is the length of the text. A text that is too long for the field is cut.
void get(std::string_view field, std::string& text) { text = field.substr(1, byteAt(field, 0)); }
void get(std::string_view field, std::uint8_t& number) { number = byteAt(field, 0); }
/// The lowest byte comes first.
void get(std::string_view field, std::int32_t& number) {
    std::uint32_t bits = 0;
    for (std::size_t place = field.size(); place-- > 0;)
        bits = bits << 8 | byteAt(field, place);
    number = static_cast<std::int32_t>(bits);
}
void get(std::string_view field, std::array<std::uint8_t, kLegacyFlagCount>& flags) {
    std::transform(field.begin(), field.end(), flags.begin(),
                   [](char byte) { return static_cast<std::uint8_t>(byte); });
}

/// In any case.
bool hasEnding(std::string_view name, std::string_view ending) {
    return name.size() >= ending.size() &&
           EqualIgnoringAsciiCase(name.substr(name.size() - ending.size()), ending);
}

} // namespace

bool HasLegacyEnding(std::string_view fileName) { return hasEnding(fileName, "PL2"); }

bool IsJoiningKeyword(std::string_view keyword) { return EqualIgnoringAsciiCase(keyword, "SC"); }

std::optional<std::int16_t> FontOfLegacyCode(std::uint8_t code) {
    constexpr std::array<std::int16_t, 5> fonts{0, 6, 3, 8, 10};
    return code < fonts.size() ? std::optional(fonts.at(code)) : std::nullopt;
}

LegacyRecord ReadLegacyRecord(std::string_view bytes) {
    LegacyRecord record;
    ForEachRow(kFields,
               [&](const auto& field) { get(bytes.substr(field.offset, field.size), record.*field.member); });
    return record;
}

std::vector<LegacyByteRange> KnownLegacyBytes() {
    std::vector<LegacyByteRange> ranges;
    ForEachRow(kFields, [&](const auto& field) {
        ranges.push_back({field.offset, field.offset + field.size - 1});
    });
    return ranges;
}

bool HasLegacyMark(InputFile& file) {
    std::array<char, kLegacyMark.size()> start{};
    return ValueOf(file.readAt(0, start)) == start.size() &&
           std::string_view(start.data(), start.size()) == kLegacyMark;
}

LegacyExtent ExtentOf(const InputFile& file) {
    const std::uint64_t size = file.size() - std::min<std::uint64_t>(file.size(), kLegacyMark.size());
    return {size / kLegacyRecordSize, size % kLegacyRecordSize};
}

std::vector<LegacyRecord> ReadLegacyRecords(InputFile& file, std::size_t most) {
    std::vector<LegacyRecord> records;
    std::array<char, kLegacyUsedSize> bytes{};
    const std::uint64_t count = std::min<std::uint64_t>(ExtentOf(file).records, most);
    while (records.size() < count) {
        if (ValueOf(file.readAt(LegacyRecordStart(records.size()), bytes)) < bytes.size())
            break; // the file has shrunk
        records.push_back(ReadLegacyRecord({bytes.data(), bytes.size()}));
    }
    return records;
}

LegacyFileKind LegacyReference::kind() const {
    if (EqualIgnoringAsciiCase(SplitPath(fileName).name, "LEAVE.CMD"))
        return LegacyFileKind::leaveCommand;
    if (hasEnding(fileName, "CMD"))
        return LegacyFileKind::command;
    if (hasEnding(fileName, "BMP"))
        return LegacyFileKind::bitmap;
    return hasEnding(fileName, "AVI") ? LegacyFileKind::animation : LegacyFileKind::none;
}

LegacyReference SplitLegacyReference(std::string_view reference) {
    LegacyReference split;
    const std::size_t mark = reference.find(kWidthMark);
    if (mark == reference.npos) {
        split.fileName = Trim(reference);
        return split;
    }
    const std::size_t number = mark + kWidthMark.size();
    const std::size_t end = std::min(reference.find(' ', number), reference.size());
    split.width = reference.substr(number, end - number);
    std::string rest(reference.substr(0, mark));
    rest += reference.substr(std::min(end + 1, reference.size()));
    split.fileName = Trim(rest);
    return split;
}

} // namespace qrtVistrelClasses4
