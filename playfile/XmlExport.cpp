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

/// What is written before and after the value of an element: its tags, line ends and quotes.
struct Element {
    explicit Element(std::string_view name)
        : opening("<" + std::string(name) + ">\r\n\""), closing("\"\r\n</" + std::string(name) + ">\r\n") {}
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
        out_.putPlainLine("<PlayFrame>");
        put(playFrameId_, number);
        putAll(frame, frameElements_);
        put(lineCount_, frame.lines.upperBound());
        out_.putPlainLine("</PlayFrame>");
    }
    void putLine(std::int32_t frameNumber, std::int32_t lineNumber, const LineRecord& line) {
        out_.putPlainLine("<PlayLines>");
        put(playFrameId_, frameNumber);
        put(playLineId_, lineNumber);
        putAll(line, lineElements_);
        out_.putPlainLine("</PlayLines>");
    }
    void finish() { out_.finish(); }

private:
    template <class Value>
    void put(const Element& element, const Value& value) {
        out_.putBetween(element.opening, value, element.closing);
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
    Element playFrameId_{"PlayFrameID"};
    Element lineCount_{"Line_Count"};
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
