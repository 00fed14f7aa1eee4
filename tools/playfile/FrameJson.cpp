#include "tools/playfile/FrameJson.h"

#include "tools/program/PropertyValues.h"

#include <string>
#include <string_view>
#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

template <class Value>
struct Property {
    std::string_view name;
    Value (FrameInfoClass::*get)() const;
};
using Text = Property<std::string>;
using Number = Property<std::int16_t>;
using Flag = Property<bool>;

constexpr std::tuple kFrameProperties{
    Text{"FrameName", &FrameInfoClass::FrameName},
    Property<FRAME_TYPES>{"FrameType", &FrameInfoClass::FrameType},
    Number{"PrefixCode", &FrameInfoClass::PrefixCode},
    Number{"SuffixCode", &FrameInfoClass::SuffixCode},
    Property<double>{"DelayTime", &FrameInfoClass::DelayTime},
    Text{"PicturefileName", &FrameInfoClass::PicturefileName},
    Text{"commandfile", &FrameInfoClass::commandfile},
    Number{"PictureFileType", &FrameInfoClass::PictureFileType},
    Number{"PictureFileDisplay", &FrameInfoClass::PictureFileDisplay},
    Number{"FontWidth", &FrameInfoClass::FontWidth},
    Number{"FontHeight", &FrameInfoClass::FontHeight},
    Number{"TotalDisplayFramesUsedForThisFrame", &FrameInfoClass::TotalDisplayFramesUsedForThisFrame},
    Number{"RowHeightForGrid", &FrameInfoClass::RowHeightForGrid},
    Number{"SendCommandFileAsIs", &FrameInfoClass::SendCommandFileAsIs},
    Flag{"OverlayFrame", &FrameInfoClass::OverlayFrame},
    Number{"AVIFrames", &FrameInfoClass::AVIFrames},
    Flag{"FastScroll", &FrameInfoClass::FastScroll},
    Text{"AudioFile", &FrameInfoClass::AudioFile},
    Property<std::int32_t>{"WinBackColor", &FrameInfoClass::WinBackColor},
    Number{"FixedNumberOfLines", &FrameInfoClass::FixedNumberOfLines},
    Number{"TotalLinesAllowed", &FrameInfoClass::TotalLinesAllowed},
};

constexpr std::tuple kLineProperties{
    Text{"CurrentLineText", &FrameInfoClass::CurrentLineText},
    Number{"LineFontSize", &FrameInfoClass::LineFontSize},
    Flag{"Scrolling", &FrameInfoClass::Scrolling},
    Flag{"Blinking", &FrameInfoClass::Blinking},
    Flag{"Inverse", &FrameInfoClass::Inverse},
    Flag{"Merge", &FrameInfoClass::Merge},
    Text{"LineCustomFont", &FrameInfoClass::LineCustomFont},
};

template <class Properties>
ordered_json readAll(FrameInfoClass& playfile, const Properties& properties, ErrorLines& errors) {
    ordered_json object = ordered_json::object();
    const auto read = [&](const auto& property) {
        ordered_json& value = object[std::string(property.name)];
        try {
            value = JsonOf((playfile.*property.get)());
        } catch (const RuntimeError& error) {
            errors.add("frame " + std::to_string(playfile.CurrentFrame()) + ", " +
                       std::string(property.name) + ": " + error.description() + " (error " +
                       std::to_string(error.number()) + ")");
        }
    };
    std::apply([&](const auto&... property) { (read(property), ...); }, properties);
    return object;
}

} // namespace

ordered_json FramePropertiesJson(FrameInfoClass& playfile, std::int16_t number, ErrorLines& errors) {
    playfile.CurrentFrame(number);
    return readAll(playfile, kFrameProperties, errors);
}

ordered_json FrameJson(FrameInfoClass& playfile, std::int16_t number, ErrorLines& errors) {
    ordered_json frame = FramePropertiesJson(playfile, number, errors);
    ordered_json& lines = frame["Lines"] = ordered_json::array();
    const std::int16_t lineCount = playfile.TotalLinesAllowed();
    for (std::int32_t line = 1; line <= lineCount; ++line) {
        playfile.CurrentLineNumber(static_cast<std::int16_t>(line));
        lines.push_back(readAll(playfile, kLineProperties, errors));
    }
    return frame;
}

} // namespace qrtVistrelClasses4
