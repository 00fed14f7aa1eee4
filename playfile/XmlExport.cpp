// The export for other tools: every value between its tags, in quotes as in the playfile, on lines of their
// own. There is no declaration and no root element, because readers of existing exports do not expect them.
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include <qrtVistrelClasses4/SavePlayfile.h>

#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "playfile/MemberOrder.h"
#include "playfile/PlayfileFormat.h"

#include <type_traits>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// The tags of an element.
struct Element {
    explicit Element(std::string_view name)
        : opening("<" + std::string(name) + ">"), closing("</" + std::string(name) + ">") {}
    std::string opening;
    std::string closing;
};

/// The elements of a record's values, in their order.
template <class Record>
auto elementsOf() {
    std::vector<Element> elements;
    ForEachPlacedRow<kMembersOf<Record>, ExportOrder>(
        [&](const auto& row) { elements.emplace_back(row.fileName); });
    return elements;
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
    template <class Record>
    void putAll(const Record& record, const std::vector<Element>& elements) {
        auto element = elements.begin();
        ForEachPlacedRow<kMembersOf<Record>, ExportOrder>([&](const auto& row) {
            if constexpr (std::remove_cvref_t<decltype(row)>::isFlagInNumber)
                put(*element, record.*row.member == 0 ? 0 : -1);
            else
                put(*element, record.*row.member);
            ++element;
        });
    }

    QuotedLineWriter out_;
    Element playFrame_{"PlayFrame"};
    Element playFrameId_{"PlayFrameID"};
    Element lineCount_{"Line_Count"};
    Element playLines_{"PlayLines"};
    Element playLineId_{"PlayLineID"};
    std::vector<Element> frameElements_ = elementsOf<FrameRecord>();
    std::vector<Element> lineElements_ = elementsOf<LineRecord>();
};

} // namespace

std::optional<RuntimeError> ExportXml(const Playfile& playfile, const std::string& path) try {
    ReplacementFile file(platform().files(), path);
    Check(file.error());
    XmlWriter out(file);
    std::int32_t frameNumber = 0;
    for (const FrameRecord& frame : playfile.frames) {
        out.putFrame(++frameNumber, frame);
        std::int32_t lineNumber = 0;
        for (const LineRecord& line : frame.lines)
            out.putLine(frameNumber, ++lineNumber, line);
    }
    out.finish();
    Check(file.commit());
    return std::nullopt;
} catch (const RuntimeError& error) {
    return error;
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
