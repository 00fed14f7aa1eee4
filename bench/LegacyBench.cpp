// Opening a playfile of the older format, against a plain reader whose placeholders a regular expression
// finds, against careful code for the same job, and against reading and copying the fields alone.
#include "bench/OlderTexts.h"
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"
#include "playfile/Effects.h"
#include "playfile/LegacyFormat.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <regex>
#include <string_view>
#include <unistd.h>
#include <unordered_map>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfRegex = 0.2;
constexpr double kMostOfLimit = 5.5;
constexpr double kMostOfCareful = 1.3;

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

/// Where a placeholder without a code vanishes, another one may come out.
std::string replaceByRegex(const std::string& text, const std::regex& placeholder, const Codes& codes) {
    std::string result;
    auto copied = text.begin();
    bool hasVanished = false;
    for (std::sregex_iterator found(text.begin(), text.end(), placeholder), end; found != end; ++found) {
        result.append(copied, (*found)[0].first);
        const std::string& code = codes.at(found->str());
        result += code;
        hasVanished = hasVanished || code.empty();
        copied = (*found)[0].second;
    }
    result.append(copied, text.end());
    return hasVanished ? replaceByRegex(result, placeholder, codes) : result;
}

/// The fields of all records, with texts of now.
std::vector<Fields> readByRegex(const std::string& path, const std::regex& placeholder, const Codes& codes) {
    std::vector<Fields> all = readFields(path);
    for (Fields& fields : all)
        fields.text = replaceByRegex(fields.text, placeholder, codes);
    return all;
}

std::string_view trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// The text of a record as lines of a frame.
void setLines(FrameRecord& frame, std::string_view text, const Fields& fields) {
    frame.lines.resize(1 + static_cast<std::int32_t>(std::ranges::count(text, kLegacyLineEnd)));
    auto flags = fields.flags.begin();
    for (LineRecord& line : frame.lines) {
        const std::size_t end = std::min(text.find(kLegacyLineEnd), text.size());
        line.CurrentLineText = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        line.LineFontSize = FontOfLegacyCode(static_cast<std::uint8_t>(fields.font)).value_or(0);
        const char flag = *flags++;
        line.Scrolling = (flag & 1) != 0;
        line.Blinking = (flag & 2) != 0;
        line.Inverse = (flag & 4) != 0;
    }
}

/// The frames of a playfile whose only files are pictures, written by hand.
Frames openCarefully(const std::string& path, const CarefulConverter& converter) {
    const std::vector<Fields> all = readFields(path);
    Frames frames(static_cast<std::int32_t>(all.size()));
    auto frame = frames.begin();
    for (const Fields& fields : all) {
        frame->PrefixCode = PrefixCodeOfKeyword(fields.prefix).value_or(0);
        frame->SuffixCode = SuffixCodeOfKeyword(fields.suffix).value_or(0);
        std::int32_t seconds = 0;
        std::memcpy(&seconds, fields.delay.data(), fields.delay.size());
        frame->DelayTime = seconds;
        frame->FrameType = static_cast<std::int16_t>(NEW_FRAME_TYPES::FRAME_TEXT);
        if (const LegacyReference files = SplitLegacyReference(fields.reference); !files.fileName.empty()) {
            frame->FrameType = static_cast<std::int16_t>(NEW_FRAME_TYPES::FRAME_GRAPHICTEXT);
            std::from_chars(files.width->data(), files.width->data() + files.width->size(), frame->FontWidth);
            frame->PicturefileName = files.fileName;
        }
        setLines(*frame++, converter.converted(fields.text), fields);
    }
    return frames;
}

std::unique_ptr<FrameInfoClass> open(const std::string& path) {
    auto playfile = std::make_unique<FrameInfoClass>();
    playfile->SetSuppressMessages(true);
    Require(playfile->GetPlayfileFromDisk(path), "cannot open " + path);
    return playfile;
}

/// A text in each record, of which a third has three lines, and another third a picture. Unused bytes are
/// zero.
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
        put(1044, count % 3 == 1 ? "Width=128 C:\\OLDSIGN\\ANCHOR.BMP" : "");
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
            all += trimmed(rest.substr(0, end));
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
    const CarefulConverter converter;
    Require(open(path)->Value().frames == openCarefully(path, converter), "careful code makes other frames");
    RegisterWork("older/open",
                 [path](benchmark::State& state) { TimeMaking(state, [&] { return open(path); }); });
    RegisterWork("older/regex", [=](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(readByRegex(path, placeholder, codes)); });
    });
    RegisterWork("older/careful", [=](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<Frames>(openCarefully(path, converter)); });
    });
    RegisterWork("older/limit", [path](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(readFields(path)); });
    });
    const std::string subject = "open 1049 older records";
    return {{subject, "older/open", "older/regex", Bound::must, kMostOfRegex},
            {subject, "older/open", "older/limit", Bound::aim, kMostOfLimit},
            {subject, "older/open", "older/careful", Bound::aim, kMostOfCareful}};
}

} // namespace qrtVistrelClasses4::bench
