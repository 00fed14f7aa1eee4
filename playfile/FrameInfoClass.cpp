#include "playfile/FrameInfoClass.h"

#include "frame/Conversions.h"
#include "frame/Traced.h"
#include "playfile/FrameProcedures.h"
#include "playfile/LoadPlayfile.h"

#include <algorithm>
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
    traced(FrameSub("Class_Initialize"), [&] {
        playFileHasChanged_ = false;
        playfile_.frames.resize(kFramesAtCreation);
        MakeLineVarsValid();
        currentLineNumber_ = 1;
        totalFramesAllowed_ = kUsualFramesAllowed;
    });
}

FrameInfoClass::~FrameInfoClass() {
    traced(FrameSub("Class_Terminate"), [] {});
}

void FrameInfoClass::Adopt(Playfile playfile) {
    playfile_ = std::move(playfile);
    checkLinesFrom(1);
}

// Properties: once for each place that a value can be in.

template <class Type>
Type FrameInfoClass::readOwn(std::string_view name, const Type& field) const {
    return traced(propertyGet(name), [&] { return field; });
}
template <class Type>
void FrameInfoClass::writeOwn(std::string_view name, Type& field, const Type& vData) {
    traced(
        propertyLet(name), [&] { field = vData; }, Arg{"vData", vData});
}

template <class Type>
Type FrameInfoClass::readRecord(Property property, Type (*get)(const FrameRecord&)) const {
    const auto body = [&] { return get(currentFrame()); };
    return property.access == Access::traced ? traced(propertyGet(property.name), body) : untraced(body);
}
template <class Type>
Type FrameInfoClass::readRecord(Property property, Type (*get)(const LineRecord&)) const {
    const auto isEmpty = [&] {
        if (property.quirk != Quirk::forgivesCursors)
            return currentFrame().lines.empty();
        return !playfile_.frames.contains(currentFrameNumber_) ||
               !currentFrame().lines.contains(currentLineNumber_);
    };
    const auto body = [&] { return isEmpty() ? Type() : get(currentFrame().lines.at(currentLineNumber_)); };
    return property.access == Access::traced ? traced(propertyGet(property.name), body) : untraced(body);
}

template <class Given>
void FrameInfoClass::writeRecord(Property property, void (*set)(FrameRecord&, Given), Given vData) {
    const auto body = [&] { set(currentFrame(), vData); };
    if (property.access == Access::traced)
        traced(propertyLet(property.name), body, Arg{"vData", vData});
    else
        untraced(body);
}
template <class Given>
void FrameInfoClass::writeRecord(Property property, void (*set)(LineRecord&, Given), Given vData) {
    const auto body = [&] {
        OneBasedArray<LineRecord>& lines = currentFrame().lines;
        const bool isForgiven =
            property.quirk == Quirk::forgivesCursors && currentLineNumber_ > lines.upperBound();
        if (!lines.empty() && !isForgiven)
            set(lines.at(currentLineNumber_), vData);
    };
    if (property.access == Access::traced)
        traced(propertyLet(property.name), body, Arg{"vData", vData});
    else
        untraced(body);
}

template std::int16_t FrameInfoClass::readOwn(std::string_view, const std::int16_t&) const;
template std::string FrameInfoClass::readOwn(std::string_view, const std::string&) const;
template void FrameInfoClass::writeOwn(std::string_view, std::int16_t&, const std::int16_t&);
template void FrameInfoClass::writeOwn(std::string_view, std::string&, const std::string&);

template std::string FrameInfoClass::readRecord(Property, std::string (*)(const FrameRecord&)) const;
template void FrameInfoClass::writeRecord(Property, void (*)(FrameRecord&, const std::string&),
                                          const std::string&);
template std::int16_t FrameInfoClass::readRecord(Property, std::int16_t (*)(const FrameRecord&)) const;
template void FrameInfoClass::writeRecord(Property, void (*)(FrameRecord&, std::int16_t), std::int16_t);
template std::int32_t FrameInfoClass::readRecord(Property, std::int32_t (*)(const FrameRecord&)) const;
template void FrameInfoClass::writeRecord(Property, void (*)(FrameRecord&, std::int32_t), std::int32_t);
template bool FrameInfoClass::readRecord(Property, bool (*)(const FrameRecord&)) const;
template void FrameInfoClass::writeRecord(Property, void (*)(FrameRecord&, bool), bool);
template double FrameInfoClass::readRecord(Property, double (*)(const FrameRecord&)) const;
template void FrameInfoClass::writeRecord(Property, void (*)(FrameRecord&, double), double);
template FRAME_TYPES FrameInfoClass::readRecord(Property, FRAME_TYPES (*)(const FrameRecord&)) const;
template void FrameInfoClass::writeRecord(Property, void (*)(FrameRecord&, FRAME_TYPES), FRAME_TYPES);
template std::string FrameInfoClass::readRecord(Property, std::string (*)(const LineRecord&)) const;
template void FrameInfoClass::writeRecord(Property, void (*)(LineRecord&, const std::string&),
                                          const std::string&);
template std::int16_t FrameInfoClass::readRecord(Property, std::int16_t (*)(const LineRecord&)) const;
template void FrameInfoClass::writeRecord(Property, void (*)(LineRecord&, std::int16_t), std::int16_t);
template bool FrameInfoClass::readRecord(Property, bool (*)(const LineRecord&)) const;
template void FrameInfoClass::writeRecord(Property, void (*)(LineRecord&, bool), bool);

// Numbers of frames and lines.

std::int16_t FrameInfoClass::TotalFrames() const {
    return traced(propertyGet("TotalFrames"), [&] { return NarrowToInt16(playfile_.frames.upperBound()); });
}
void FrameInfoClass::TotalFrames(std::int16_t vData) {
    traced(
        propertyLet("TotalFrames"),
        [&] {
            playfile_.frames.resize(vData);
            checkLinesFrom(vData + 1);
            MakeLineVarsValid();
        },
        Arg{"vData", vData});
}

std::int16_t FrameInfoClass::TotalLinesAllowed() const {
    return traced(propertyGet("TotalLinesAllowed"),
                  [&] { return NarrowToInt16(currentFrame().lines.upperBound()); });
}
void FrameInfoClass::TotalLinesAllowed(std::int16_t vData) {
    traced(
        propertyLet("TotalLinesAllowed"),
        [&] {
            currentFrame().lines.resize(vData);
            if (vData == 0)
                checkLinesFrom(currentFrameNumber_);
        },
        Arg{"vData", vData});
}

void FrameInfoClass::checkLinesFrom(std::int32_t number) {
    firstFrameToCheck_ = std::min(firstFrameToCheck_, number);
}

void FrameInfoClass::MakeLineVarsValid() {
    traced(FrameSub("MakeLineVarsValid"), [&] {
        OneBasedArray<FrameRecord>& frames = playfile_.frames;
        for (; firstFrameToCheck_ <= frames.upperBound(); ++firstFrameToCheck_)
            if (auto& lines = frames.at(firstFrameToCheck_).lines; lines.empty())
                lines.resize(1);
    });
}

void FrameInfoClass::InitFrame(std::int16_t LineToInit) {
    traced(
        FrameSub("InitFrame"), [&] { EmptyFrame(playfile_.frames.at(LineToInit)); },
        Arg{"LineToInit", LineToInit});
}

} // namespace qrtVistrelClasses4
