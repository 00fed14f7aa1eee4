// The export for other tools. The usual form has every value between its tags, in quotes as in the playfile,
// on lines of their own. It has no declaration and no root element, because readers of existing exports do
// not expect them. The other form is an XML document for all other readers.
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include <qrtVistrelClasses4/SavePlayfile.h>
#include <qrtVistrelClasses4/Utf8.h>

#include "platform/FileNames.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
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
    void putPiece(std::string_view piece) { text_.append(piece); }
    template <class Value>
    void putPiece(std::string_view piece, const Value& value) {
        text_.append(piece);
        putValue(value);
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

/// What is written before the first value of a record, between its values, and after the last one: tags, and
/// what is between these and the values.
using Pieces = std::vector<std::string>;

/// The pieces for values of these names within one enclosing element.
template <class Writer>
Pieces piecesAround(const std::string& enclosing, const std::vector<std::string_view>& names) {
    const auto endOf = [](const std::string& name) { return "</" + name + ">" + Writer::kLineEnd; };
    Pieces pieces{"<" + enclosing + ">" + Writer::kLineEnd};
    for (const std::string_view view : names) {
        const std::string name(view);
        pieces.back() += "<" + name + ">" + Writer::kBeforeValue;
        pieces.push_back(Writer::kAfterValue + endOf(name));
    }
    pieces.back() += endOf(enclosing);
    return pieces;
}

/// The names of a record's values, in their order.
template <class Record>
void addNames(std::vector<std::string_view>& names) {
    ForEachPlacedRow<kMembersOf<Record>, ExportOrder>(
        [&](const auto& row) { names.push_back(row.fileName); });
}

template <class Writer>
Pieces piecesOfFrame() {
    std::vector<std::string_view> names{"PlayFrameID"};
    addNames<FrameRecord>(names);
    names.emplace_back("Line_Count");
    return piecesAround<Writer>("PlayFrame", names);
}

template <class Writer>
Pieces piecesOfLine() {
    std::vector<std::string_view> names{"PlayFrameID", "PlayLineID"};
    addNames<LineRecord>(names);
    return piecesAround<Writer>("PlayLines", names);
}

/// Writes elements and the tags that enclose them.
template <class Writer>
class XmlWriter {
public:
    explicit XmlWriter(ByteSink& file) : out_(file) {}

    void putFrame(std::int32_t number, const FrameRecord& frame) {
        next_ = framePieces_.begin();
        put(number);
        putAll(frame);
        put(frame.lines.upperBound());
        out_.putPiece(*next_);
    }
    void putLine(std::int32_t frameNumber, std::int32_t lineNumber, const LineRecord& line) {
        next_ = linePieces_.begin();
        put(frameNumber);
        put(lineNumber);
        putAll(line);
        out_.putPiece(*next_);
    }
    void finish() { out_.finish(); }

private:
    template <class Value>
    void put(const Value& value) {
        out_.putPiece(*next_++, value);
    }
    template <class Record>
    void putAll(const Record& record) {
        ForEachPlacedRow<kMembersOf<Record>, ExportOrder>([&]<class Row>(const Row& row) {
            if constexpr (Row::isFlagInNumber)
                put(record.*row.member == 0 ? 0 : -1);
            else if constexpr (std::is_same_v<typename Row::Value, std::string>)
                put(Writer::textOf(record.*row.member, row.quirk == Quirk::namesFile));
            else
                put(record.*row.member);
        });
    }

    Writer out_;
    const Pieces framePieces_ = piecesOfFrame<Writer>();
    const Pieces linePieces_ = piecesOfLine<Writer>();
    Pieces::const_iterator next_; ///< The piece before the next value.
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
