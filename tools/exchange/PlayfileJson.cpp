#include "tools/exchange/PlayfileJson.h"

#include "frame/QuotedLines.h"

namespace qrtVistrelClasses4 {
namespace {

using FrameList = OneBasedArray<FrameRecord>;

std::int32_t lineCountOf(const void* frame) {
    return static_cast<const FrameRecord*>(frame)->lines.upperBound();
}

const void* linesOf(const void* frame) { return &static_cast<const FrameRecord*>(frame)->lines; }

/// A new frame has an empty line.
void addEmptyLine(void* frame) { static_cast<FrameRecord*>(frame)->lines.resize(1); }

/// The value itself, of which something is a member in JSON only.
const void* wholeRecord(const void* value) { return value; }

} // namespace

bool CanBeInPlayfile(std::string_view ansi) { return ansi.find(kStoredQuote) == ansi.npos; }

void Exchanged<FrameRecord>::addMembers(JsonKind& kind) {
    static const JsonKind count{.form = JsonForm::count, .countIn = &lineCountOf};
    const AllowedValues& anything = AllowedValuesOf({});
    kind.members.push_back({std::string(kLineCountKey), &count, &wholeRecord, &anything});
    kind.members.push_back(
        {"Lines", &JsonKindOf<OneBasedArray<LineRecord>>::get(), &linesOf, &anything, false, &addEmptyLine});
}

const JsonKind& KindOfPlayfile() {
    static const JsonKind kind = [] {
        static const JsonKind name{.form = JsonForm::ignored};
        static const AllowedValues& anything = AllowedValuesOf({});
        static const JsonKind object{.form = JsonForm::object,
                                     .members = {{std::string(kFileKey), &name, &wholeRecord, &anything},
                                                 {std::string(kFramesKey), &JsonKindOf<FrameList>::get(),
                                                  &wholeRecord, &anything, true}}};
        JsonKind list = JsonKindOf<FrameList>::get();
        list.orObject = &object;
        return list;
    }();
    return kind;
}

} // namespace qrtVistrelClasses4
