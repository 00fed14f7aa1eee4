// vistrel inspect: what a playfile of the older format contains, and what is lost when it is opened.
#include "frame/SystemErrors.h"
#include "platform/Hex.h"
#include "playfile/LegacyFormat.h"
#include "tools/playfile/Opening.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Table.h"
#include "tools/program/ValueKinds.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

struct InspectOptions {
    InputOptions input;
    bool json = false;
};

using ByteRanges = std::vector<LegacyByteRange>;

/// The bytes that are not zero.
ByteRanges rangesOf(std::string_view bytes) {
    ByteRanges ranges;
    for (std::size_t first = 0; (first = bytes.find_first_not_of('\0', first)) != bytes.npos;) {
        const std::size_t end = std::min(bytes.find('\0', first), bytes.size());
        ranges.push_back({first, end - 1});
        first = end;
    }
    return ranges;
}

std::size_t countOf(const ByteRanges& ranges) {
    std::size_t count = 0;
    for (const auto& [first, last] : ranges)
        count += last - first + 1;
    return count;
}

/// A record as the file holds it, and the bytes outside its fields that are not zero.
struct InspectedRecord {
    LegacyRecord fields;
    ByteRanges unknown;
};

/// Calls `take(record)` for every record.
template <class Take>
void inspectRecords(InputFile& file, Take take) {
    const ByteRanges known = KnownLegacyBytes();
    const std::uint64_t count = ExtentOf(file).records;
    std::string bytes(kLegacyRecordSize, '\0');
    for (std::uint64_t index = 0; index < count; ++index) {
        if (ValueOf(file.readAt(LegacyRecordStart(index), bytes)) < bytes.size())
            return; // the file has shrunk
        InspectedRecord record{ReadLegacyRecord(bytes), {}};
        for (const auto& [first, last] : known)
            bytes.replace(first, last - first + 1, last - first + 1, '\0');
        record.unknown = rangesOf(bytes);
        take(record);
    }
}

ordered_json jsonOf(const InspectedRecord& record) {
    const LegacyRecord& fields = record.fields;
    auto ranges = ordered_json::array();
    for (const auto& [first, last] : record.unknown)
        ranges.push_back({first, last});
    return {{"prefixKeyword", JsonOf(fields.prefixKeyword)},
            {"suffixKeyword", JsonOf(fields.suffixKeyword)},
            {"delay", fields.delay},
            {"fontCode", fields.fontCode},
            {"lineFlags", fields.lineFlags},
            {"reference", JsonOf(fields.reference)},
            {"text", JsonOf(fields.text)},
            {"unknownBytes", {{"count", countOf(record.unknown)}, {"ranges", ranges}}}};
}

/// Prints record by record, so that a long file does not become one large value in memory.
void printJson(std::ostream& out, const std::string& name, InputFile& file) {
    out << "{\n\"file\": " << JsonText(name) << ",\n\"records\": ";
    JsonArray records(out);
    inspectRecords(file, [&](const InspectedRecord& record) { records.add(jsonOf(record)); });
    records.end();
    out << ",\n\"bytesBehindRecords\": " << ExtentOf(file).bytesAfter << "\n}";
}

/// The flags up to the last one that is set, in hexadecimal.
std::string flagsText(const std::array<std::uint8_t, kLegacyFlagCount>& flags) {
    std::string text;
    std::size_t end = 0;
    for (const std::uint8_t bits : flags) {
        AppendHex(text, bits);
        end = bits != 0 ? text.size() : end;
        text += ' ';
    }
    return text.substr(0, end);
}

/// The first few.
std::string rangesText(const ByteRanges& ranges) {
    constexpr std::size_t most = 6;
    std::string text;
    for (std::size_t i = 0; i < std::min(ranges.size(), most); ++i) {
        const auto [first, last] = ranges[i];
        text += (i > 0 ? ", " : "") + std::to_string(first);
        text += last > first ? "-" + std::to_string(last) : "";
    }
    return ranges.size() <= most ? text : text + " and " + std::to_string(ranges.size() - most) + " more";
}

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
    std::size_t unknownInAll = 0;
    inspectRecords(file, [&](const InspectedRecord& record) {
        const LegacyRecord& known = record.fields;
        const std::string numberText = std::to_string(++number);
        fields.addRow({numberText, VisibleAnsi(known.prefixKeyword), VisibleAnsi(known.suffixKeyword),
                       std::to_string(known.delay), std::to_string(known.fontCode),
                       flagsText(known.lineFlags), VisibleAnsi(known.reference), VisibleAnsi(known.text)});
        const std::size_t unknownCount = countOf(record.unknown);
        unknownInAll += unknownCount;
        if (unknownCount > 0)
            unknown.addRow({numberText, std::to_string(unknownCount), rangesText(record.unknown)});
    });
    out << fields << "\nBytes outside the known fields that are not zero: " << unknownInAll << '\n';
    if (unknownInAll > 0)
        out << unknown;
    out << "Bytes after the last whole record: " << ExtentOf(file).bytesAfter << '\n';
}

ExitCode inspect(const InspectOptions& options, Session& session) {
    const std::vector<Input> inputs = FindInputs(options.input, InputKind::olderPlayfile, session.errors);
    Headings headings(options.input, session.out);
    std::optional<JsonArray> files; // for several files as JSON
    if (options.json && options.input.areSeveral())
        files.emplace(session.out);
    const ExitCode code = ForEachInput(inputs, session, [&](const Input& input) {
        AboutInput(session.errors, input.path);
        const auto file = OpenInput(input.path);
        if (!HasLegacyMark(*file)) {
            session.errors.add(FaultWithoutLegacyMark(InputName(input.path)));
            return ExitCode::failed;
        }
        if (options.json) {
            printJson(files ? files->startElement() : session.out, input.path, *file);
        } else {
            headings.print(input.path);
            printTables(session.out, *file);
        }
        return ExitCode::done;
    });
    if (files)
        files->end();
    if (options.json && (files || code == ExitCode::done))
        session.out << '\n';
    return code;
}

} // namespace

void SetUpInspectCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<InspectOptions>();
    SetAction(command, session, options, &inspect);
    AddInputOptions(command, options->input, "FILES", "The playfiles, whatever their names end in")
        ->type_name(kOlderPlayfileValue)
        ->required();
    command.add_flag(
        "--json", options->json,
        "Prints the records with all their unknown bytes; for several files, an array of what one "
        "file gives");
}

} // namespace qrtVistrelClasses4
