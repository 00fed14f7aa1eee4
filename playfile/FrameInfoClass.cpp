#include <qrtVistrelClasses4/FrameInfoClass.h>

#include "frame/Conversions.h"
#include "frame/Traced.h"
#include "playfile/FrameProcedures.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include <algorithm>
#include <functional>
#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int16_t kFramesAtCreation = 20;

constexpr Procedure propertyGet(std::string_view name) {
    return FrameProcedure(ProcedureKind::PropertyGet, name);
}
constexpr Procedure propertyLet(std::string_view name) {
    return FrameProcedure(ProcedureKind::PropertyLet, name);
}

} // namespace

FrameInfoClass::FrameInfoClass() {
    traced({lastError_, FrameSub("Class_Initialize")}, [&] {
        playFileHasChanged_ = false;
        playfile_.frames.resize(kFramesAtCreation);
        MakeLineVarsValid();
        currentLineNumber_ = 1;
        totalFramesAllowed_ = kUsualFramesAllowed;
    });
}

FrameInfoClass::~FrameInfoClass() {
    traced({lastError_, FrameSub("Class_Terminate")}, [] {});
}

void FrameInfoClass::Adopt(Playfile playfile) {
    lastError_.begin();
    playfile_ = std::move(playfile);
    checkLinesFrom(1);
}

void FrameInfoClass::TakeOver(FrameInfoClass& other) noexcept {
    lastError_.begin();
    if (&other == this)
        return;
    playfile_ = std::move(other.playfile_);
    firstFrameToCheck_ = other.firstFrameToCheck_;
    currentFrameNumber_ = other.currentFrameNumber_;
    currentLineNumber_ = other.currentLineNumber_;
    displayWidth_ = other.displayWidth_;
    displayHeight_ = other.displayHeight_;
    totalFramesAllowed_ = other.totalFramesAllowed_;
    playFileHasChanged_ = other.playFileHasChanged_;
    suppressMessages_ = other.suppressMessages_;
}

// Properties: once for each place that a value can be in.

template <class Type>
Type FrameInfoClass::readOwn(std::string_view name, const Type& field) const {
    return tracedProperty({lastError_, propertyGet(name)}, [&] { return field; });
}
template <class Type>
void FrameInfoClass::writeOwn(std::string_view name, Type& field, const Type& vData) {
    tracedProperty(
        {lastError_, propertyLet(name)}, [&] { field = vData; }, Arg{"vData", vData});
}

template <Access access, class Record, class Type, class Given, bool isPlain>
Type FrameInfoClass::Property<access, Record, Type, Given, isPlain>::read(const FrameInfoClass& playfile,
                                                                          const MemberColumns& row,
                                                                          Getter get) {
    return asAccessedNow<access>([&]<Access now>() { return readAs<now>(playfile, row, get); });
}

template <Access access, class Record, class Type, class Given, bool isPlain>
bool FrameInfoClass::Property<access, Record, Type, Given, isPlain>::write(FrameInfoClass& playfile,
                                                                           const MemberColumns& row,
                                                                           Setter set, Given vData,
                                                                           void (*check)(Given)) {
    return asAccessedNow<access>(
        [&]<Access now>() { return writeAs<now>(playfile, row, set, vData, check); });
}

template <Access access, class Record, class Type, class Given, bool isPlain>
template <Access now>
Type FrameInfoClass::Property<access, Record, Type, Given, isPlain>::readAs(const FrameInfoClass& playfile,
                                                                            const MemberColumns& row,
                                                                            Getter get) {
    return accessed<now>({playfile.lastError_, propertyGet(row.name)}, [&]() -> Type {
        if constexpr (std::is_same_v<Record, FrameRecord>)
            return std::invoke(get, playfile.currentFrame());
        else if (const LineRecord* line = playfile.lineToRead(row.quirk))
            return std::invoke(get, *line);
        else
            return Type();
    });
}

template <Access access, class Record, class Type, class Given, bool isPlain>
template <Access now>
bool FrameInfoClass::Property<access, Record, Type, Given, isPlain>::writeAs(FrameInfoClass& playfile,
                                                                             const MemberColumns& row,
                                                                             Setter set, Given vData,
                                                                             void (*check)(Given)) {
    const auto put = [&](Record& record) {
        if constexpr (isPlain)
            record.*set = vData;
        else
            set(record, vData);
    };
    const auto body = [&] {
        if constexpr (!isPlain)
            check(vData);
        if constexpr (std::is_same_v<Record, FrameRecord>)
            put(playfile.currentFrame());
        else if (LineRecord* line = playfile.lineToWrite(row.quirk))
            put(*line);
        return true;
    };
    return accessed<now>({playfile.lastError_, propertyLet(row.name)}, body, Arg{"vData", vData});
}

const LineRecord* FrameInfoClass::lineToRead(Quirk quirk) const {
    if (quirk == Quirk::forgivesCursors && !playfile_.frames.contains(currentFrameNumber_))
        return nullptr;
    const OneBasedArray<LineRecord>& lines = currentFrame().lines;
    if (lines.empty() || (quirk == Quirk::forgivesCursors && !lines.contains(currentLineNumber_)))
        return nullptr;
    return &lines.at(currentLineNumber_);
}

LineRecord* FrameInfoClass::lineToWrite(Quirk quirk) {
    OneBasedArray<LineRecord>& lines = currentFrame().lines;
    if (lines.empty() || (quirk == Quirk::forgivesCursors && currentLineNumber_ > lines.upperBound()))
        return nullptr;
    return &lines.at(currentLineNumber_);
}

template std::int16_t FrameInfoClass::readOwn(std::string_view, const std::int16_t&) const;
template std::string FrameInfoClass::readOwn(std::string_view, const std::string&) const;
template void FrameInfoClass::writeOwn(std::string_view, std::int16_t&, const std::int16_t&);
template void FrameInfoClass::writeOwn(std::string_view, std::string&, const std::string&);

// Every kind of property that the tables have.
// clang-format off
template struct FrameInfoClass::Property<Access::traced, FrameRecord, std::string, const std::string&, true>;
template struct FrameInfoClass::Property<Access::traced, FrameRecord, std::int16_t, std::int16_t, true>;
template struct FrameInfoClass::Property<Access::traced, FrameRecord, std::int16_t, std::int16_t, false>;
template struct FrameInfoClass::Property<Access::traced, FrameRecord, double, double, false>;
template struct FrameInfoClass::Property<Access::traced, FrameRecord, FRAME_TYPES, FRAME_TYPES, false>;
template struct FrameInfoClass::Property<Access::untraced, FrameRecord, std::string, const std::string&, true>;
template struct FrameInfoClass::Property<Access::untraced, FrameRecord, std::int16_t, std::int16_t, true>;
template struct FrameInfoClass::Property<Access::untraced, FrameRecord, std::int32_t, std::int32_t, true>;
template struct FrameInfoClass::Property<Access::untraced, FrameRecord, std::int16_t, std::int32_t, false>;
template struct FrameInfoClass::Property<Access::untraced, FrameRecord, std::int16_t, bool, false>;
template struct FrameInfoClass::Property<Access::untraced, FrameRecord, bool, bool, false>;
template struct FrameInfoClass::Property<Access::traced, LineRecord, std::string, const std::string&, true>;
template struct FrameInfoClass::Property<Access::traced, LineRecord, std::int16_t, std::int16_t, true>;
template struct FrameInfoClass::Property<Access::traced, LineRecord, bool, bool, true>;
template struct FrameInfoClass::Property<Access::untraced, LineRecord, std::string, const std::string&, true>;
template struct FrameInfoClass::Property<Access::untraced, LineRecord, bool, bool, true>;
// clang-format on

// Numbers of frames and lines.

std::int16_t FrameInfoClass::TotalFrames() const {
    return tracedProperty({lastError_, propertyGet("TotalFrames")},
                          [&] { return NarrowToInt16(playfile_.frames.upperBound()); });
}
void FrameInfoClass::TotalFrames(std::int16_t vData) {
    traced(
        {lastError_, propertyLet("TotalFrames")},
        [&] {
            playfile_.frames.resize(vData);
            checkLinesFrom(vData + 1);
            MakeLineVarsValid();
        },
        Arg{"vData", vData});
}

std::int16_t FrameInfoClass::TotalLinesAllowed() const {
    return tracedProperty({lastError_, propertyGet("TotalLinesAllowed")},
                          [&] { return NarrowToInt16(currentFrame().lines.upperBound()); });
}
void FrameInfoClass::TotalLinesAllowed(std::int16_t vData) { (void)resizeLines(vData); }

bool FrameInfoClass::resizeLines(std::int16_t vData) {
    return tracedProperty(
        {lastError_, propertyLet("TotalLinesAllowed")},
        [&] {
            currentFrame().lines.resize(vData);
            if (vData == 0)
                checkLinesFrom(currentFrameNumber_);
            return true;
        },
        Arg{"vData", vData});
}

void FrameInfoClass::checkLinesFrom(std::int32_t number) {
    firstFrameToCheck_ = std::min(firstFrameToCheck_, number);
}

void FrameInfoClass::MakeLineVarsValid() { (void)giveLines(); }

bool FrameInfoClass::giveLines() {
    return traced({lastError_, FrameSub("MakeLineVarsValid")}, [&] {
        OneBasedArray<FrameRecord>& frames = playfile_.frames;
        for (; firstFrameToCheck_ <= frames.upperBound(); ++firstFrameToCheck_)
            if (auto& lines = frames.at(firstFrameToCheck_).lines; lines.empty())
                lines.resize(1);
        return true;
    });
}

void FrameInfoClass::InitFrame(std::int16_t LineToInit) { (void)emptyFrame(LineToInit); }

bool FrameInfoClass::emptyFrame(std::int16_t LineToInit) {
    return traced(
        {lastError_, FrameSub("InitFrame")},
        [&] {
            EmptyFrame(playfile_.frames.at(LineToInit));
            return true;
        },
        Arg{"LineToInit", LineToInit});
}

} // namespace qrtVistrelClasses4
