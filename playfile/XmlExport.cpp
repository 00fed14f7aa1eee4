// The export for other tools. The usual form has every value between its tags, in quotes as in the playfile,
// on lines of their own. It has no declaration and no root element, because readers of existing exports do
// not expect them. The other form is an XML document for all other readers.
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include <qrtVistrelClasses4/SavePlayfile.h>

#include "platform/FileNames.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "platform/Utf8.h"
#include "playfile/MemberOrder.h"
#include "playfile/PlayfileFormat.h"
#include "playfile/PlayfileOutput.h"
#include "playfile/XmlText.h"

#include <concepts>
#include <type_traits>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// Writes the usual form.
class ElementWriter : public QuotedLineWriter {
public:
    static constexpr const char *kBeforeValue = "\r\n\"", *kAfterValue = "\"\r\n", *kLineEnd = "\r\n";

    using QuotedLineWriter::QuotedLineWriter;
    static const std::string& textOf(const std::string& text, bool /*namesFile*/) { return text; }
};

/// Writes an XML document.
class DocumentWriter {
public:
    static constexpr const char *kBeforeValue = "", *kAfterValue = "", *kLineEnd = "\n";
    static constexpr std::string_view kStart = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Playfile>\n",
                                      kEnd = "</Playfile>\n";

    explicit DocumentWriter(ByteSink& file) : text_(file) { text_.append(kStart); }

    static std::string textOf(const std::string& text, bool namesFile) {
        return XmlText(namesFile ? Utf8FromName(text) : Utf8FromAnsi(text));
    }
    void putPlainLine(std::string_view line) {
        text_.append(line);
        text_.append(kLineEnd);
    }
    template <class Value>
    void putBetween(std::string_view before, const Value& value, std::string_view after) {
        text_.append(before);
        putValue(value);
        text_.append(after);
    }
    void finish() {
        text_.append(kEnd);
        text_.finish();
    }

private:
    void putValue(std::string_view text) { text_.append(text); }
    void putValue(std::int32_t number) { text_.append(number); }
    void putValue(double number) {
        NumberBuffer digits;
        text_.append(FormatNumber(number, digits));
    }
    void putValue(std::same_as<bool> auto flag) { text_.append(BooleanToText(flag)); }

    BufferedText text_;
};

/// What is written before and after the value of an element: its tags, and what is between these and the
/// value.
struct Element {
    std::string opening;
    std::string closing;
};
template <class Writer>
Element elementOf(std::string_view name) {
    return {"<" + std::string(name) + ">" + Writer::kBeforeValue,
            Writer::kAfterValue + ("</" + std::string(name) + ">") + Writer::kLineEnd};
}

/// The elements of a record's values, in their order.
template <class Writer, class Record>
auto elementsOf() {
    std::vector<Element> elements;
    ForEachPlacedRow<kMembersOf<Record>, ExportOrder>(
        [&](const auto& row) { elements.push_back(elementOf<Writer>(row.fileName)); });
    return elements;
}

/// Writes elements and the tags that enclose them.
template <class Writer>
class XmlWriter {
public:
    explicit XmlWriter(ByteSink& file) : out_(file) {}

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
        ForEachPlacedRow<kMembersOf<Record>, ExportOrder>([&]<class Row>(const Row& row) {
            if constexpr (Row::isFlagInNumber)
                put(*element, record.*row.member == 0 ? 0 : -1);
            else if constexpr (std::is_same_v<typename Row::Value, std::string>)
                put(*element, Writer::textOf(record.*row.member, row.quirk == Quirk::namesFile));
            else
                put(*element, record.*row.member);
            ++element;
        });
    }

    Writer out_;
    Element playFrameId_ = elementOf<Writer>("PlayFrameID");
    Element lineCount_ = elementOf<Writer>("Line_Count");
    Element playLineId_ = elementOf<Writer>("PlayLineID");
    std::vector<Element> frameElements_ = elementsOf<Writer, FrameRecord>();
    std::vector<Element> lineElements_ = elementsOf<Writer, LineRecord>();
};

template <class Writer>
void writeAll(const Playfile& playfile, ByteSink& to) {
    XmlWriter<Writer> out(to);
    std::int32_t frameNumber = 0;
    for (const FrameRecord& frame : playfile.frames) {
        out.putFrame(++frameNumber, frame);
        std::int32_t lineNumber = 0;
        for (const LineRecord& line : frame.lines)
            out.putLine(frameNumber, ++lineNumber, line);
    }
    out.finish();
}

} // namespace

std::optional<RuntimeError> WriteXml(const Playfile& playfile, ByteSink& to, XmlForm form) try {
    if (form == XmlForm::document)
        writeAll<DocumentWriter>(playfile, to);
    else
        writeAll<ElementWriter>(playfile, to);
    return std::nullopt;
} catch (const RuntimeError& error) {
    return error;
} catch (...) {
    RethrowAsRuntimeError();
}

std::optional<RuntimeError> ExportXml(const Playfile& playfile, const std::string& path, XmlForm form) try {
    ReplacementFile file(platform().files(), path);
    Check(file.error());
    Check(WriteXml(playfile, file, form));
    Check(file.commit());
    return std::nullopt;
} catch (const RuntimeError& error) {
    return error;
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
