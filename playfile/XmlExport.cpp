// The export for other tools: every value between its tags, in quotes as in the playfile, on lines of their
// own. No declaration and no root element, which readers of existing exports do not expect.
#include "frame/Traced.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/FrameProcedures.h"
#include "playfile/PlayfileFormat.h"

#include <string>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kXmlEnding = ".xml";

/// Stored as any number; exported as 0 and -1.
struct ExportedFlag {
    std::int16_t FrameRecord::*member;
};

/// A frame's values in their order here, between its number and its number of lines. They are called as in
/// the playfile.
constexpr std::tuple kFrameElements{
    &FrameRecord::commandfile,      ExportedFlag{&FrameRecord::SendCommandFileAsIs},
    &FrameRecord::DelayTime,        &FrameRecord::FontHeight,
    &FrameRecord::FrameName,        &FrameRecord::FrameType,
    &FrameRecord::PicturefileName,  &FrameRecord::PrefixCode,
    &FrameRecord::SuffixCode,       &FrameRecord::PictureFileDisplay,
    &FrameRecord::PictureFileType,  &FrameRecord::TotalDisplayFramesUsedForThisFrame,
    &FrameRecord::RowHeightForGrid, ExportedFlag{&FrameRecord::OverlayFrame},
    &FrameRecord::AVIFrames,        &FrameRecord::AudioFile,
};

/// The tags of an element.
struct Element {
    explicit Element(std::string_view name)
        : opening("<" + std::string(name) + ">"), closing("</" + std::string(name) + ">") {}
    std::string opening;
    std::string closing;
};

/// An element with the value of a record.
template <class Member>
struct ValueElement {
    Member member;
    Element element;
};

/// What the playfile calls the value.
template <class Member>
constexpr std::string_view nameOf(Member member) {
    std::string_view name;
    const auto look = [&](const auto& field) {
        if constexpr (std::is_same_v<decltype(field.member), Member>)
            if (field.member == member)
                name = field.name;
    };
    std::apply([&](const auto&... field) { (look(field), ...); }, kFrameFields);
    return name;
}
constexpr std::string_view nameOf(ExportedFlag flag) { return nameOf(flag.member); }
static_assert(std::apply([](auto... member) { return (!nameOf(member).empty() && ...); }, kFrameElements));

template <class... Members>
auto elementsOf(const std::tuple<Members...>& members) {
    return std::apply(
        [](const auto&... member) {
            return std::tuple(ValueElement<Members>{member, Element(nameOf(member))}...);
        },
        members);
}

// Spare values stay in the playfile.
template <class Record, class Value, std::size_t count>
std::tuple<> elementsOf(const PlayfileField<Record, std::array<Value, count>>&) {
    return {};
}
template <class Record, class Value>
auto elementsOf(const PlayfileField<Record, Value>& field) {
    return std::tuple(ValueElement<Value Record::*>{field.member, Element(field.name)});
}

/// A line's values, in the order and under the names of the playfile.
auto lineElements() {
    return std::apply([](const auto&... field) { return std::tuple_cat(elementsOf(field)...); }, kLineFields);
}

/// Writes elements and the tags that enclose them.
class XmlWriter {
public:
    explicit XmlWriter(ReplacementFile& file) : out_(file) {}

    void putFrame(std::int32_t number, const FrameRecord& frame) {
        out_.putPlainLine(playFrame_.opening);
        put(playFrameId_, number);
        putAll(frame, frameElements_);
        put(lineCount_, frame.lines.upperBound());
        out_.putPlainLine(playFrame_.closing);
    }
    void putLine(std::int32_t frameNumber, std::int32_t lineNumber, const LineRecord& line) {
        out_.putPlainLine(playLines_.opening);
        put(playFrameId_, frameNumber);
        put(playLineId_, lineNumber);
        putAll(line, lineElements_);
        out_.putPlainLine(playLines_.closing);
    }
    void finish() { out_.finish(); }

private:
    template <class Value>
    void put(const Element& element, const Value& value) {
        out_.putPlainLine(element.opening);
        out_.put(value);
        out_.putPlainLine(element.closing);
    }
    template <class Record, class Elements>
    void putAll(const Record& record, const Elements& elements) {
        std::apply([&](const auto&... each) { (put(each.element, valueIn(record, each.member)), ...); },
                   elements);
    }
    template <class Record, class Value>
    static const Value& valueIn(const Record& record, Value Record::*member) {
        return record.*member;
    }
    static std::int32_t valueIn(const FrameRecord& frame, ExportedFlag flag) {
        return frame.*flag.member == 0 ? 0 : -1;
    }

    QuotedLineWriter out_;
    Element playFrame_{"PlayFrame"};
    Element playFrameId_{"PlayFrameID"};
    Element lineCount_{"Line_Count"};
    Element playLines_{"PlayLines"};
    Element playLineId_{"PlayLineID"};
    decltype(elementsOf(kFrameElements)) frameElements_ = elementsOf(kFrameElements);
    decltype(lineElements()) lineElements_ = lineElements();
};

} // namespace

bool FrameInfoClass::WriteXMLToDisk(const std::string& sFileName) {
    return traced(
        FrameFunction("WriteXMLToDisk"),
        [&] {
            currentFileName_ = sFileName;
            try {
                writeXml(sFileName + std::string(kXmlEnding));
                return true;
            } catch (const RuntimeError&) {
                showMessage({"Error writing to file. Maybe read-only.", "Unable to save playfile",
                             MessageIcon::critical, MessageButtons::ok});
                return false;
            }
        },
        Arg{"sFileName", sFileName});
}

void FrameInfoClass::writeXml(const std::string& path) {
    ReplacementFile file(platform().files(), path);
    Check(file.error());
    XmlWriter out(file);
    for (std::int32_t frameNumber = 1; frameNumber <= frames_.upperBound(); ++frameNumber) {
        const FrameRecord& frame = frames_.at(frameNumber);
        out.putFrame(frameNumber, frame);
        for (std::int32_t lineNumber = 1; lineNumber <= frame.lines.upperBound(); ++lineNumber)
            out.putLine(frameNumber, lineNumber, frame.lines.at(lineNumber));
    }
    out.finish();
    Check(file.commit());
}

} // namespace qrtVistrelClasses4
