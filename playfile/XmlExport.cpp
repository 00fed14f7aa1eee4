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

/// What is written before the first value of a record, between its values, and after the last one: tags,
/// line ends and quotes.
using Pieces = std::vector<std::string>;

/// The pieces for values of these names within one enclosing element.
Pieces piecesAround(const std::string& enclosing, const std::vector<std::string_view>& names) {
    Pieces pieces{"<" + enclosing + ">\r\n"};
    for (const std::string_view view : names) {
        const std::string name(view);
        pieces.back() += "<" + name + ">\r\n\"";
        pieces.push_back("\"\r\n</" + name + ">\r\n");
    }
    pieces.back() += "</" + enclosing + ">\r\n";
    return pieces;
}

/// The names of a record's values, in their order.
template <class Record>
void addNames(std::vector<std::string_view>& names) {
    ForEachPlacedRow<kMembersOf<Record>, ExportOrder>(
        [&](const auto& row) { names.push_back(row.fileName); });
}

Pieces piecesOfFrame() {
    std::vector<std::string_view> names{"PlayFrameID"};
    addNames<FrameRecord>(names);
    names.emplace_back("Line_Count");
    return piecesAround("PlayFrame", names);
}

Pieces piecesOfLine() {
    std::vector<std::string_view> names{"PlayFrameID", "PlayLineID"};
    addNames<LineRecord>(names);
    return piecesAround("PlayLines", names);
}

class XmlWriter {
public:
    explicit XmlWriter(ReplacementFile& file) : out_(file) {}

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
        ForEachPlacedRow<kMembersOf<Record>, ExportOrder>([&](const auto& row) {
            if constexpr (std::remove_cvref_t<decltype(row)>::isFlagInNumber)
                put(record.*row.member == 0 ? 0 : -1);
            else
                put(record.*row.member);
        });
    }

    QuotedLineWriter out_;
    const Pieces framePieces_ = piecesOfFrame();
    const Pieces linePieces_ = piecesOfLine();
    Pieces::const_iterator next_; ///< The piece before the next value.
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
