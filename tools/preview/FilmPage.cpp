#include "tools/preview/FilmPage.h"

#include "commands/PreviewText.h"
#include "frame/BufferedText.h"
#include "tools/playfile/FrameNames.h"
#include "tools/preview/Base64.h"
#include "tools/preview/Deflater.h"
#include "tools/preview/FilmPageParts.h"
#include "tools/preview/FilmPictures.h"
#include "tools/program/Encoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

std::int64_t millisecondsOf(double seconds) {
    constexpr double millisecondsInSecond = 1000;
    return std::llround(seconds * millisecondsInSecond);
}

/// JSON that may be in a script of a page: nothing in it ends the script, or is anything but ASCII.
std::string scriptText(const nlohmann::ordered_json& value) {
    const std::string json = value.dump(-1, ' ', true, nlohmann::ordered_json::error_handler_t::replace);
    std::string text;
    text.reserve(json.size());
    for (const char character : json)
        if (character == '<') // which is in strings only
            text += R"(\u003c)";
        else
            text += character;
    return text;
}

nlohmann::ordered_json findingsJson(const std::vector<Finding>& findings, std::int32_t frame) {
    auto array = nlohmann::ordered_json::array();
    for (auto finding = std::ranges::lower_bound(findings, frame, {}, &Finding::frame);
         finding != findings.end() && finding->frame == frame; ++finding)
        array.push_back(
            {{"severity", SeverityName(finding->rule->severity)}, {"text", VisibleAnsi(finding->message)}});
    return array;
}

} // namespace

/// The text of the page.
class FilmPage::Text {
public:
    Text(const FilmPageFacts& facts, ByteSink& file, std::size_t mostBytes)
        : mostBytes_(mostBytes), text_(file), base64_(text_),
          packed_([this](std::string_view piece) { base64_.append(piece); }) {
        text_.append(kPageBeforeFilm);
        putFacts(facts);
        text_.append(kPageBeforePictures);
    }

    bool add(double seconds, const Raster& dots) {
        const std::string_view picture = pictures_.encode(millisecondsOf(seconds), dots);
        bytes_ += picture.size();
        if (bytes_ > mostBytes_)
            return false;
        packed_.append(picture);
        return true;
    }

    void finish() {
        packed_.finish();
        base64_.finish();
        text_.append(kPageAfterPictures);
        text_.finish();
    }

private:
    void put(const nlohmann::ordered_json& value) { text_.append(scriptText(value)); }

    /// One frame and one step at a time, because JSON takes far more memory than what it is of.
    void putFacts(const FilmPageFacts& facts) {
        text_.append(R"({"title":)");
        put(Visible(facts.title));
        text_.append(R"(,"width":)");
        put(facts.size.width);
        text_.append(R"(,"height":)");
        put(facts.size.height);
        text_.append(R"(,"milliseconds":)");
        put(millisecondsOf(facts.seconds));
        text_.append(R"(,"isPlain":)");
        put(facts.isPlain);
        text_.append(R"(,"findings":)");
        put(findingsJson(facts.findings, 0));
        text_.append(",\n\"frames\":[");
        putFrames(facts);
        text_.append("],\n\"steps\":[");
        putSteps(facts);
        text_.append("]}");
    }

    void putFrames(const FilmPageFacts& facts) {
        TextPreviews previews(facts.commands, 0);
        std::string_view separator = "\n";
        for (const std::int32_t number : facts.frames) {
            const FrameRecord& frame = facts.playfile->frames.at(number);
            auto texts = nlohmann::ordered_json::array();
            for (const LineRecord& line : frame.lines)
                if (const std::string text = previews.of(line.CurrentLineText);
                    text.find_first_not_of(' ') != text.npos)
                    texts.push_back(VisibleAnsi(text));
            text_.append(std::exchange(separator, ",\n"));
            put({{"number", number},
                 {"name", VisibleAnsi(frame.FrameName)},
                 {"kind", KindName(frame)},
                 {"appears", AppearEffectName(frame)},
                 {"disappears", DisappearEffectName(frame)},
                 {"milliseconds", millisecondsOf(facts.playTime->frames.at(number).total().likely)},
                 {"texts", std::move(texts)},
                 {"findings", findingsJson(facts.findings, number)}});
        }
    }

    /// A step has the index of its frame in the list.
    void putSteps(const FilmPageFacts& facts) {
        std::map<std::int32_t, std::size_t> indexOf;
        for (const std::int32_t number : facts.frames)
            indexOf.emplace(number, indexOf.size());
        std::string_view separator = "\n";
        for (const FilmCut::Step& step : facts.steps) {
            text_.append(std::exchange(separator, ",\n"));
            put({millisecondsOf(step.start), indexOf.at(step.shown.frame), step.shown.round});
        }
    }

    std::size_t mostBytes_;
    BufferedText text_;
    Base64 base64_;
    Deflater packed_;
    FilmPictures pictures_;
    std::size_t bytes_ = 0;
};

FilmPage::FilmPage(const FilmPageFacts& facts, ByteSink& file, std::size_t mostBytes)
    : text_(std::make_unique<Text>(facts, file, mostBytes)) {}
FilmPage::~FilmPage() = default;

bool FilmPage::add(double seconds, const Raster& dots) { return text_->add(seconds, dots); }

void FilmPage::finish() { text_->finish(); }

} // namespace qrtVistrelClasses4
