#include "fonts/classFontMaster.h"

#include "fonts/clsFontSizes.h"
#include "frame/Conversions.h"
#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "platform/Platform.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr Procedure procedure(ProcedureKind kind, std::string_view name) {
    return {"classFontMaster.cls", kind, name};
}
constexpr Procedure sub(std::string_view name) { return procedure(ProcedureKind::Sub, name); }
constexpr Procedure function(std::string_view name) { return procedure(ProcedureKind::Function, name); }

std::int32_t inPixels(std::int64_t width) { return RoundToInt32(static_cast<double>(width)); }

} // namespace

bool classFontMaster::LoadFont(const std::string& path, std::int16_t width, std::int16_t height) {
    return loadFile(path, width, height, true);
}

bool classFontMaster::LoadFontByNum(std::int16_t fontNumber, std::int16_t signType) {
    return loadNumbered(fontNumber, signType, true);
}

bool classFontMaster::loadFile(const std::string& path, std::int16_t width, std::int16_t height,
                               bool mayUseFont0) {
    return traced(
        function("LoadFont"),
        [&] {
            const FontOutcome outcome = LoadFontUnlessReplaced(path, {width, height}, mayUseFont0);
            for (const std::string& message : outcome.messages)
                if (const MessageHandler handler = onMessage_) // a copy, since the handler may replace itself
                    handler(message);
            Check(outcome.error);
            if (outcome.source == FontSource::font0)
                return loadNumbered(0, 0, false);
            if (outcome.font)
                font_ = *outcome.font;
            return outcome.font.has_value();
        },
        Arg{"path", path}, Arg{"width", width}, Arg{"height", height});
}

bool classFontMaster::loadNumbered(std::int16_t fontNumber, std::int16_t signType, bool mayUseFont0) {
    return traced(
        function("LoadFontByNum"),
        [&] {
            const auto file = FindNumberedFont(fontNumber, signType, useNewFont_);
            return file && loadFile(file->path, file->size.width, file->size.height, mayUseFont0);
        },
        Arg{"fontNumber", fontNumber}, Arg{"signType", signType});
}

bool classFontMaster::LoadExistingFont(const std::string& path, std::int16_t width, std::int16_t height) {
    return traced(
        function("LoadExistingFont"),
        [&] {
            if (path.empty())
                return false;
            const auto font = ValueOf(ReadFont(platform().files().existingName(path), width, height));
            if (!font)
                Raise(ErrorNumber::inputPastEnd);
            font_ = *font;
            return true;
        },
        Arg{"path", path}, Arg{"width", width}, Arg{"height", height});
}

void classFontMaster::FontSizeByNum(std::int16_t fontNumber) {
    traced(
        sub("FontSizeByNum"),
        [&] {
            const auto size = clsFontSizes::FontSize(fontNumber);
            if (!size)
                return;
            font_.width = size->width;
            font_.height = size->height;
        },
        Arg{"fontNumber", fontNumber});
}

std::int32_t classFontMaster::GlyphOffset(const std::string& letter) {
    return traced(
        function("GlyphOffset"),
        [&] {
            constexpr std::int32_t none = -1;
            return letter.empty() ? none : font_.glyphOffset(letter.front()).value_or(none);
        },
        Arg{"letter", letter});
}

void classFontMaster::DrawLetter(const std::string& letter, DrawingTarget& target, float x, float y,
                                 std::int16_t drawBackground, std::int16_t useBitmapDC,
                                 std::int32_t& advance) {
    DrawingTarget* const object = &target;
    traced(
        sub("DrawLetter"),
        [&] {
            advance = 0;
            if (letter.empty())
                return;
            const std::string first = letter.substr(0, 1);
            GlyphOffset(first); // the search is a step on the trace
            advance = inPixels(
                DrawLetters(lettering(), first, {target, x, y, useBitmapDC != 0}, drawBackground != 0).width);
        },
        Arg{"letter", letter}, Arg{"target", object}, Arg{"x", x}, Arg{"y", y},
        Arg{"drawBackground", drawBackground}, Arg{"useBitmapDC", useBitmapDC}, Arg{"advance", advance});
}

std::int32_t classFontMaster::LetterWidth(const std::string& letter) {
    return traced(
        function("LetterWidth"),
        [&] { return inPixels(WidthOf(lettering(), std::string_view(letter).substr(0, 1))); },
        Arg{"letter", letter});
}

std::int32_t classFontMaster::TextWidth(const std::string& text) {
    return traced(
        function("TextWidth"), [&] { return inPixels(WidthOf(lettering(), text)); }, Arg{"text", text});
}

void classFontMaster::DrawText(const std::string& text, DrawingTarget& target, float x, float y,
                               std::int16_t drawBackground, std::int16_t useBitmapDC, std::int32_t& advance) {
    DrawingTarget* const object = &target;
    traced(
        sub("DrawText"),
        [&] {
            advance = 0;
            advance = inPixels(
                DrawLetters(lettering(), text, {target, x, y, useBitmapDC != 0}, drawBackground != 0).width);
        },
        Arg{"text", text}, Arg{"target", object}, Arg{"x", x}, Arg{"y", y},
        Arg{"drawBackground", drawBackground}, Arg{"useBitmapDC", useBitmapDC}, Arg{"advance", advance});
}

void classFontMaster::HilightSelection(const std::string& text, DrawingTarget& target, float x, float y,
                                       std::int16_t firstLetter, std::int16_t lastLetter,
                                       std::int16_t useBitmapDC) {
    DrawingTarget* const object = &target;
    traced(
        sub("HilightSelection"),
        [&] {
            DrawSelection(lettering(), text, {target, x, y, useBitmapDC != 0}, firstLetter, lastLetter);
        },
        Arg{"text", text}, Arg{"target", object}, Arg{"x", x}, Arg{"y", y}, Arg{"firstLetter", firstLetter},
        Arg{"lastLetter", lastLetter}, Arg{"useBitmapDC", useBitmapDC});
}

void classFontMaster::CycleIndexMarker(const std::string& text, DrawingTarget& target, float x, float y,
                                       std::int16_t index, std::int16_t useBitmapDC) {
    DrawingTarget* const object = &target;
    traced(
        sub("CycleIndexMarker"),
        [&] {
            DrawIndexMarker(lettering(), text, {target, x, y, useBitmapDC != 0}, index, !isMarkerShown_);
            isMarkerShown_ = !isMarkerShown_;
        },
        Arg{"text", text}, Arg{"target", object}, Arg{"x", x}, Arg{"y", y}, Arg{"index", index},
        Arg{"useBitmapDC", useBitmapDC});
}

} // namespace qrtVistrelClasses4
