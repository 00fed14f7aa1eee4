// Opening a playfile of the older format, against a plain reader whose placeholders a regular expression
// finds, and against reading and copying the fields alone.
#include "bench/OlderTexts.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"
#include "playfile/LegacyFormat.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <array>
#include <fcntl.h>
#include <regex>
#include <string_view>
#include <unistd.h>
#include <unordered_map>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfRegex = 0.2;
constexpr double kMostOfLimit = 7;

/// Copies of a record's fields. Texts follow a byte with their length.
struct Fields {
    std::string prefix, text, suffix, reference;
    std::array<char, 4> delay{};
    std::array<char, 24> flags{};
    char font = '\0';
};

using Record = std::array<char, kLegacyUsedSize>;

std::string textAt(const Record& bytes, std::size_t place) {
    return {&bytes.at(place + 1), static_cast<unsigned char>(bytes.at(place))};
}

Fields copyFields(const Record& bytes) {
    Fields fields{textAt(bytes, 2), textAt(bytes, 292), textAt(bytes, 804), textAt(bytes, 1044)};
    std::copy_n(&bytes[288], fields.delay.size(), fields.delay.begin());
    std::copy_n(&bytes[1020], fields.flags.size(), fields.flags.begin());
    fields.font = bytes[931];
    return fields;
}

/// One `pread` of the used part of each record.
std::vector<Fields> readFields(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    Require(file >= 0, "cannot open " + path);
    std::vector<Fields> all;
    Record bytes{};
    const auto isRead = [&] {
        const std::size_t start = kLegacyMark.size() + all.size() * kLegacyRecordSize;
        return ::pread(file, bytes.data(), bytes.size(), static_cast<off_t>(start)) ==
               static_cast<ssize_t>(bytes.size());
    };
    while (isRead())
        all.push_back(copyFields(bytes));
    ::close(file);
    return all;
}

using Codes = std::unordered_map<std::string, std::string>;

Codes makeCodes() {
    Codes codes;
    for (const auto& [placeholder, code] : MakeReplacements())
        codes.emplace(placeholder, code);
    return codes;
}

/// Any of the placeholders.
std::regex makePattern() {
    std::string pattern;
    for (const Replacement& replacement : MakeReplacements())
        pattern += (pattern.empty() ? "\\" : "|\\") + replacement.placeholder;
    return std::regex(pattern, std::regex::optimize);
}

std::string replaceByRegex(const std::string& text, const std::regex& placeholder, const Codes& codes) {
    std::string result;
    auto copied = text.begin();
    for (std::sregex_iterator found(text.begin(), text.end(), placeholder), end; found != end; ++found) {
        result.append(copied, (*found)[0].first);
        result += codes.at(found->str());
        copied = (*found)[0].second;
    }
    return result.append(copied, text.end());
}

/// The fields of all records, with texts of now.
std::vector<Fields> readByRegex(const std::string& path, const std::regex& placeholder, const Codes& codes) {
    std::vector<Fields> all = readFields(path);
    for (Fields& fields : all)
        fields.text = replaceByRegex(fields.text, placeholder, codes);
    return all;
}

std::unique_ptr<FrameInfoClass> open(const std::string& path) {
    auto playfile = std::make_unique<FrameInfoClass>();
    playfile->SetSuppressMessages(true);
    Require(playfile->GetPlayfileFromDisk(path), "cannot open " + path);
    return playfile;
}

/// A text in each record, of which a third has three lines; a picture on one in 32. Unused bytes are zero.
std::string makePlayfile() {
    std::string file(kLegacyMark);
    std::size_t count = 0;
    for (std::string text : MakeTexts(MakeReplacements())) {
        std::string record(kLegacyRecordSize, '\0');
        const auto put = [&](std::size_t place, const std::string& value) {
            record[place] = static_cast<char>(value.size());
            record.replace(place + 1, value.size(), value);
        };
        if (++count % 3 == 0)
            text[80] = text[160] = kLegacyLineEnd;
        put(2, "LR");
        record[288] = static_cast<char>(count % 9);
        put(292, text);
        put(804, "RL");
        record[931] = static_cast<char>(count % 5);
        record[1020] = 2;
        put(1044, count % 32 == 0 ? "Width=128 C:\\OLDSIGN\\ANCHOR.BMP" : "");
        file += record;
    }
    return file;
}

/// All lines with something between them that is part of none, without the blanks around them.
std::string linesOf(FrameInfoClass& playfile) {
    std::string all;
    for (std::int16_t frame = 1; frame <= playfile.TotalFrames(); ++frame) {
        playfile.CurrentFrame(frame);
        for (std::int16_t line = 1; line <= playfile.TotalLinesAllowed(); ++line) {
            playfile.CurrentLineNumber(line);
            all += playfile.CurrentLineText() + kLegacyLineEnd;
        }
    }
    return all;
}

std::string linesOf(const std::vector<Fields>& records) {
    std::string all;
    for (const Fields& fields : records) {
        std::string_view rest = fields.text;
        for (std::size_t end = 0; end != rest.npos; rest.remove_prefix(end == rest.npos ? 0 : end + 1)) {
            end = rest.find(kLegacyLineEnd);
            std::string_view line = rest.substr(0, end);
            line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
            all += line.substr(0, line.find_last_not_of(' ') + 1);
            all += kLegacyLineEnd;
        }
    }
    return all;
}

} // namespace

std::vector<Ratio> LegacySubject(const BenchFolder& folder) {
    const std::string path = folder.file("older.PL2");
    WriteNewFile(path, makePlayfile());
    const std::regex placeholder = makePattern();
    const Codes codes = makeCodes();
    Require(linesOf(*open(path)) == linesOf(readByRegex(path, placeholder, codes)),
            "the regular expression makes other lines");
    RegisterWork("older/open",
                 [path](benchmark::State& state) { TimeMaking(state, [&] { return open(path); }); });
    RegisterWork("older/regex", [=](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(readByRegex(path, placeholder, codes)); });
    });
    RegisterWork("older/limit", [path](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(readFields(path)); });
    });
    const std::string subject = "open 1049 older records";
    return {{subject, "older/open", "older/regex", Bound::must, kMostOfRegex},
            {subject, "older/open", "older/limit", Bound::aim, kMostOfLimit}};
}

} // namespace qrtVistrelClasses4::bench
