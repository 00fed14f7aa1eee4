#include "bench/CarefulPlayfile.h"

#include "bench/CarefulText.h"
#include "bench/WholeFile.h"
#include "platform/LetterCase.h"
#include "playfile/Effects.h"
#include "playfile/MemberOrder.h"
#include "playfile/PlayfileFormat.h"

#include <filesystem>
#include <set>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unordered_map>
#include <vector>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr std::size_t kTypicalValue = 16; ///< Bytes of a value in its line, to reserve memory.

bool isFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string upperCase(std::string_view name) {
    std::string upper(name);
    std::transform(upper.begin(), upper.end(), upper.begin(), AsciiUpper);
    return upper;
}

std::size_t nameStart(std::string_view path) { return path.find_last_of("/\\") + 1; }

/// Looks for files where a playfile says they are, and then beside it.
class References {
public:
    explicit References(const std::string& playfile) : folder_(playfile.substr(0, nameStart(playfile))) {}

    void find(std::string& reference) {
        if (reference.empty())
            return;
        const auto [known, isNew] = known_.try_emplace(reference);
        if (isNew)
            known->second = found(reference);
        if (!known->second.empty())
            reference = known->second;
    }

private:
    /// Empty if the reference is to stay as it is.
    std::string found(const std::string& reference) {
        if (reference.starts_with('/') && isFile(reference))
            return {};
        if (names_.empty())
            for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
                const std::string name = entry.path().filename().string();
                names_.emplace(upperCase(name), name);
            }
        const auto name = names_.find(upperCase(std::string_view(reference).substr(nameStart(reference))));
        const std::string beside = name == names_.end() ? "" : folder_ + name->second;
        return !beside.empty() && isFile(beside) ? beside : "";
    }

    std::string folder_;
    std::unordered_map<std::string, std::string> names_; ///< Of all files in the folder.
    std::unordered_map<std::string, std::string> known_;
};

/// The values of a playfile, each between quotes in a line of its own.
class Reader {
public:
    explicit Reader(std::string_view text) : lines_(text) {}

    std::int32_t count() {
        std::int32_t count = 0;
        lines_.number(count, 1, " \r\n");
        return count;
    }
    void get(std::string& text) {
        if (lines_.take("\"\"\r\n"))
            return text.clear();
        text.assign(value());
        std::replace(text.begin(), text.end(), kStoredQuote, '"');
    }
    void get(bool& flag) { flag = !lines_.take("\"False\"\r\n") && value() == "True"; }
    template <class Number>
    void get(Number& number) {
        lines_.number(number, 1, "\"\r\n");
    }
    template <class Value, std::size_t count>
    void get(std::array<Value, count>& values) {
        for (Value& value : values)
            get(value);
    }
    template <class Record>
    void getAll(Record& record) {
        ForEachFileRow(kMembersOf<Record>, [&](const auto& row) { get(record.*row.member); });
    }

private:
    std::string_view value() {
        const std::string_view line = lines_.line();
        return line.substr(1, line.size() - 2);
    }

    CarefulLines lines_;
};

void correct(FrameRecord& frame, References& references) {
    references.find(frame.commandfile);
    references.find(frame.PicturefileName);
    for (std::int16_t* const code : {&frame.PrefixCode, &frame.SuffixCode})
        if (*code == kOldWipe)
            *code = kWipe;
}

void correct(LineRecord& line) {
    if (line.LineFontSize == 2) {
        line.LineFontSize = 12;
        line.LineCustomFont = "FNT4X8.CFF";
    }
}

/// Values that are put together in memory, each between an opening and an ending.
class Writer {
public:
    explicit Writer(std::size_t values) : text_(values * kTypicalValue) {}

    std::string_view text() const { return text_.text(); }
    void append(std::string_view text) { text_.append(text); }
    void appendNumber(std::int32_t number) { text_.appendNumber(number); }
    template <class Value>
    void put(std::string_view opening, const Value& value, std::string_view ending) {
        text_.append(opening);
        putValue(value);
        text_.append(ending);
    }

private:
    void putValue(const std::string& text) { text_.appendReplacing(text, '"', kStoredQuote); }
    void putValue(bool flag) { text_.append(flag ? "True" : "False"); }
    template <class Number>
    void putValue(Number number) {
        text_.appendNumber(number);
    }

    CarefulText text_;
};

template <class Value>
void putQuoted(Writer& out, const Value& value) {
    out.put("\"", value, "\"\r\n");
}
template <class Value, std::size_t count>
void putQuoted(Writer& out, const std::array<Value, count>& values) {
    for (const Value& value : values)
        putQuoted(out, value);
}
template <class Record>
void putAll(Writer& out, const Record& record) {
    ForEachFileRow(kMembersOf<Record>, [&](const auto& row) { putQuoted(out, record.*row.member); });
}

std::size_t countValues(const Frames& frames) {
    std::size_t lines = 0;
    for (const FrameRecord& frame : frames)
        lines += static_cast<std::size_t>(frame.lines.upperBound());
    return lines * 17 + static_cast<std::size_t>(frames.upperBound()) * 27;
}

/// What saving asks the operator about: whether files may go away. A file is on the drive of its folder.
bool areOnDrives(const Frames& frames) {
    std::set<std::string, std::less<>> folders;
    bool areAll = true;
    for (const FrameRecord& frame : frames)
        for (const auto member : {&FrameRecord::PicturefileName, &FrameRecord::commandfile}) {
            const std::string_view file = frame.*member;
            const std::string_view folder = file.substr(0, nameStart(file));
            if (file.empty() || folders.contains(folder))
                continue;
            struct statfs drive {};
            areAll = ::statfs(folders.emplace(folder).first->c_str(), &drive) == 0 && areAll;
        }
    return areAll;
}

/// An element of one value.
struct Element {
    explicit Element(std::string_view name)
        : opening("<" + std::string(name) + ">\r\n\""), ending("\"\r\n</" + std::string(name) + ">\r\n") {}
    std::string opening;
    std::string ending;
};
using Elements = std::vector<Element>;

template <class Record>
Elements elementsOf() {
    Elements elements;
    ForEachPlacedRow<kMembersOf<Record>, ExportOrder>(
        [&](const auto& row) { elements.emplace_back(row.fileName); });
    return elements;
}

template <class Record>
void exportAll(Writer& out, const Record& record, const Elements& elements) {
    auto element = elements.begin();
    ForEachPlacedRow<kMembersOf<Record>, ExportOrder>([&](const auto& row) {
        if constexpr (std::remove_cvref_t<decltype(row)>::isFlagInNumber)
            out.put(element->opening, record.*row.member == 0 ? 0 : -1, element->ending);
        else
            out.put(element->opening, record.*row.member, element->ending);
        ++element;
    });
}

} // namespace

Frames LoadCarefully(const std::string& path) {
    const WholeFile file = ReadWholeFile(path);
    Reader in(file.text());
    References references(path);
    Frames frames(in.count());
    for (FrameRecord& frame : frames) {
        in.getAll(frame);
        correct(frame, references);
        std::int32_t lines = 0;
        in.get(lines);
        frame.lines.resize(lines);
        for (LineRecord& line : frame.lines) {
            in.getAll(line);
            correct(line);
        }
    }
    return frames;
}

void SaveCarefully(const Frames& frames, const std::string& path) {
    benchmark::DoNotOptimize(areOnDrives(frames));
    Writer out(countValues(frames));
    out.append(" ");
    out.appendNumber(frames.upperBound());
    out.append(" \r\n");
    for (const FrameRecord& frame : frames) {
        putAll(out, frame);
        putQuoted(out, frame.lines.upperBound());
        for (const LineRecord& line : frame.lines)
            putAll(out, line);
    }
    WriteDurably(path, out.text());
}

void ExportCarefully(const Frames& frames, const std::string& path) {
    const Elements frameElements = elementsOf<FrameRecord>();
    const Elements lineElements = elementsOf<LineRecord>();
    const Element frameId("PlayFrameID"), lineId("PlayLineID"), lineCount("Line_Count");
    Writer out(countValues(frames) * 4);
    std::int32_t frameNumber = 0;
    for (const FrameRecord& frame : frames) {
        out.append("<PlayFrame>\r\n");
        out.put(frameId.opening, ++frameNumber, frameId.ending);
        exportAll(out, frame, frameElements);
        out.put(lineCount.opening, frame.lines.upperBound(), lineCount.ending);
        out.append("</PlayFrame>\r\n");
        std::int32_t lineNumber = 0;
        for (const LineRecord& line : frame.lines) {
            out.append("<PlayLines>\r\n");
            out.put(frameId.opening, frameNumber, frameId.ending);
            out.put(lineId.opening, ++lineNumber, lineId.ending);
            exportAll(out, line, lineElements);
            out.append("</PlayLines>\r\n");
        }
    }
    WriteDurably(path, out.text());
}

} // namespace qrtVistrelClasses4::bench
