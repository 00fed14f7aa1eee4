// vistrel inspect: what a playfile of the older format holds, and what opening it leaves behind.
#include "frame/RuntimeError.h"
#include "platform/Platform.h"
#include "playfile/LegacyFormat.h"
#include "tools/playfile/Opening.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Table.h"

#include <algorithm>
#include <bitset>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

struct InspectOptions {
    std::string file;
    bool json = false;
};

using RecordBytes = std::bitset<kLegacyRecordSize>;

/// The bytes of a record that its fields come from: those that make a difference to what is read.
RecordBytes knownBytes() {
    constexpr char full = '\xff'; // as a length: the text fills its field
    std::string bytes(kLegacyUsedSize, full);
    const LegacyRecord record = ReadLegacyRecord(bytes);
    RecordBytes known;
    for (std::size_t offset = 0; offset < bytes.size(); ++offset) {
        bytes[offset] = '\0';
        known[offset] = ReadLegacyRecord(bytes) != record;
        bytes[offset] = full;
    }
    return known;
}

/// Offsets from the start of the record, the last one included.
using ByteRange = std::pair<std::size_t, std::size_t>;

std::vector<ByteRange> rangesOf(const RecordBytes& bytes) {
    std::vector<ByteRange> ranges;
    for (std::size_t offset = 0; offset < bytes.size(); ++offset) {
        if (!bytes[offset])
            continue;
        if (!ranges.empty() && ranges.back().second + 1 == offset)
            ranges.back().second = offset;
        else
            ranges.emplace_back(offset, offset);
    }
    return ranges;
}

/// A record as the file holds it, and the bytes outside its fields that are not zero.
struct InspectedRecord {
    LegacyRecord fields;
    std::size_t unknownCount = 0;
    std::vector<ByteRange> unknown;
};

/// Shows every record to `take`, one at a time.
template <class Take>
void inspectRecords(InputFile& file, Take take) {
    const RecordBytes known = knownBytes();
    const std::uint64_t count = ExtentOf(file).records;
    std::string bytes(kLegacyRecordSize, '\0');
    for (std::uint64_t index = 0; index < count; ++index) {
        if (ValueOf(file.readAt(LegacyRecordStart(index), bytes)) < bytes.size())
            return; // the file has shrunk
        RecordBytes unknown;
        for (std::size_t offset = 0; offset < bytes.size(); ++offset)
            unknown[offset] = bytes[offset] != '\0' && !known[offset];
        take(InspectedRecord{ReadLegacyRecord(bytes), unknown.count(), rangesOf(unknown)});
    }
}

ordered_json jsonOf(const InspectedRecord& record) {
    const LegacyRecord& fields = record.fields;
    return {{"prefixKeyword", JsonOf(fields.prefixKeyword)},
            {"suffixKeyword", JsonOf(fields.suffixKeyword)},
            {"delay", fields.delay},
            {"fontCode", fields.fontCode},
            {"lineFlags", fields.lineFlags},
            {"reference", JsonOf(fields.reference)},
            {"text", JsonOf(fields.text)},
            {"unknownBytes", {{"count", record.unknownCount}, {"ranges", record.unknown}}}};
}

/// Record by record: a long file does not become one large value in memory.
void printJson(std::ostream& out, const std::string& name, InputFile& file) {
    out << "{\n\"file\": " << JsonText(name) << ",\n\"records\": [";
    const char* separator = "\n";
    inspectRecords(file, [&](const InspectedRecord& record) {
        out << std::exchange(separator, ",\n") << JsonText(jsonOf(record));
    });
    out << "\n],\n\"bytesBehindRecords\": " << ExtentOf(file).bytesAfter << "\n}\n";
}

/// Those up to the last one that is set, in hexadecimal.
std::string flagsText(const std::array<std::uint8_t, kLegacyFlagCount>& flags) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    std::size_t end = 0;
    for (const std::uint8_t bits : flags) {
        text += text.empty() ? "" : " ";
        (text += digits[bits >> 4]) += digits[bits & 0xf];
        end = bits != 0 ? text.size() : end;
    }
    return text.substr(0, end);
}

/// The first few.
std::string rangesText(const std::vector<ByteRange>& ranges) {
    constexpr std::size_t most = 6;
    std::string text;
    for (std::size_t i = 0; i < std::min(ranges.size(), most); ++i) {
        const auto [first, last] = ranges[i];
        text += (i > 0 ? ", " : "") + std::to_string(first);
        text += last > first ? "-" + std::to_string(last) : "";
    }
    return ranges.size() <= most ? text : text + " and " + std::to_string(ranges.size() - most) + " more";
}

std::string cellOf(const std::string& ansi) { return Visible(Utf8FromAnsi(ansi)); }

void printTables(std::ostream& out, InputFile& file) {
    constexpr auto right = Table::Align::right;
    Table fields({{"No.", right},
                  {"Prefix"},
                  {"Suffix"},
                  {"Delay", right},
                  {"Font", right},
                  {"Flags"},
                  {"Reference"},
                  {"Text"}});
    Table unknown({{"No.", right}, {"Bytes", right}, {"At"}});
    std::size_t number = 0;
    std::size_t unknownCount = 0;
    inspectRecords(file, [&](const InspectedRecord& record) {
        const LegacyRecord& known = record.fields;
        const std::string numberText = std::to_string(++number);
        fields.addRow({numberText, cellOf(known.prefixKeyword), cellOf(known.suffixKeyword),
                       std::to_string(known.delay), std::to_string(known.fontCode),
                       flagsText(known.lineFlags), cellOf(known.reference), cellOf(known.text)});
        unknownCount += record.unknownCount;
        if (record.unknownCount > 0)
            unknown.addRow({numberText, std::to_string(record.unknownCount), rangesText(record.unknown)});
    });
    out << fields << "\nBytes outside the known fields that are not zero: " << unknownCount << '\n';
    if (unknownCount > 0)
        out << unknown;
    out << "Bytes behind the last whole record: " << ExtentOf(file).bytesAfter << '\n';
}

ExitCode inspect(const InspectOptions& options, Session& session) {
    session.errors.about(options.file);
    const auto file = ValueOf(platform().files().openToRead(options.file));
    if (!HasLegacyMark(*file)) {
        session.errors.add(kNoLegacyMark);
        return ExitCode::failed;
    }
    if (options.json)
        printJson(session.out, options.file, *file);
    else
        printTables(session.out, *file);
    return ExitCode::done;
}

} // namespace

void AddInspectCommand(CLI::App& program, Session& session) {
    CLI::App& command = AddCommand(program, "inspect",
                                   "Shows the records of a playfile of the older format (PL2) as they are",
                                   "vistrel inspect lobby.PL2");
    const auto options = std::make_shared<InspectOptions>();
    command.add_option("FILE", options->file, "The playfile, whatever its name ends in")->required();
    command.add_flag("--json", options->json, "Prints the records with all their unknown bytes");
    command.callback([options, &session] {
        session.command = [options, &session] { return inspect(*options, session); };
    });
}

} // namespace qrtVistrelClasses4
