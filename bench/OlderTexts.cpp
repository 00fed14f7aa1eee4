#include "bench/OlderTexts.h"

#include "bench/Dice.h"

#include <algorithm>
#include <array>

namespace qrtVistrelClasses4::bench {

namespace {

constexpr std::size_t kTextsToOneBadBrace = 7;

/// The placeholder in the middle of a text with bad braces; `kind` counts such texts.
std::string withBadBrace(const std::string& placeholder, std::size_t kind) {
    switch (kind % 4) {
    case 0:
        return "{" + placeholder;
    case 1:
        return placeholder + "}";
    case 2:
        return "{Gate " + placeholder + "}";
    default:
        return "{vbl {days}7}"; // days have no code, so that another placeholder comes out
    }
}

} // namespace

std::vector<Replacement> MakeReplacements() {
    std::vector<Replacement> replacements{{"{time}", "|h:m|"},
                                          {"{mtime}", "|hm|"},
                                          {"{temp_c}", "##C"},
                                          {"{temp_f}", "##F"},
                                          {"{tdays}", ""},
                                          {"{years}", ""},
                                          {"{months}", ""},
                                          {"{days}", ""},
                                          {"{hours}", ""},
                                          {"{seconds}", ""},
                                          {"{date1}", "|m/dd/y|"},
                                          {"{date2}", "|mmmmmmm_dd,_yyy|"},
                                          {"{date3}", "|dddddddd_mmmmmmmm_dd,_yyy|"},
                                          {"{date4}", "|mm_d|"},
                                          {"{date5}", "|ddddddd|"},
                                          {"{date6}", "|mmmmmmm_dd,_yyy|"},
                                          {"{date7}", "|dddddddd_mmmmmmmm_dd,_yyy|"},
                                          {"{date8}", "|mm_d|"},
                                          {"{date9}", "|mmmmmmm_dd,_yyy|"},
                                          {"{minutes}", ""}};
    const auto addNumbered = [&](const std::string& name, const std::string& code, int last,
                                 std::size_t digits) {
        for (int number = 1; number <= last; ++number) {
            const std::string text = std::to_string(number);
            replacements.push_back(
                {"{" + name + text + "}", code + std::string(digits - text.size(), '0') + text});
        }
    };
    addNumbered("vbl ", "VBL", 416, 3);
    addNumbered("cnt ", "CR", 16, 2);
    return replacements;
}

std::vector<std::string> MakeTexts(const std::vector<Replacement>& replacements) {
    constexpr std::array<std::string_view, 6> words{"Platform ", "Train to ", "in ",
                                                    "WELCOME! ", "Gate ",     "- "};
    Dice dice;
    std::vector<std::string> texts(kTexts);
    std::size_t number = 0;
    for (std::string& text : texts) {
        const bool hasBadBrace = ++number % kTextsToOneBadBrace == 0;
        for (std::size_t made = 0; made < kPlaceholdersInText;) {
            const std::string placeholder = dice.oneOf(replacements).placeholder;
            text += hasBadBrace && made == kPlaceholdersInText / 2
                        ? withBadBrace(placeholder, number / kTextsToOneBadBrace)
                        : placeholder;
            const std::size_t end = ++made * kTextSize / kPlaceholdersInText;
            while (text.size() < end)
                text += dice.oneOf(words);
            text.resize(end);
        }
    }
    return texts;
}

CarefulConverter::CarefulConverter() {
    for (const auto& [placeholder, code] : MakeReplacements())
        codes_.emplace(placeholder, code);
}

std::string CarefulConverter::converted(const std::string& text) const {
    std::string result;
    result.reserve(text.size());
    std::size_t open = text.npos; // the last brace in the result that may open a placeholder
    bool isOnceMore = false;
    const std::string_view rest(text);
    for (std::size_t place = 0; place < text.size();) {
        std::size_t brace = place;
        while (brace < text.size() && text[brace] != '{' && text[brace] != '}')
            ++brace;
        result.append(rest.substr(place, brace - place));
        place = brace + 1;
        if (brace == text.size())
            break;
        if (text[brace] == '{')
            open = result.size();
        result += text[brace];
        if (text[brace] == '{' || open == text.npos)
            continue;
        if (const auto code = codes_.find(std::string_view(result).substr(open)); code != codes_.end()) {
            result.replace(open, result.npos, code->second);
            const bool isInBraces = result.find('{') != result.npos;
            isOnceMore = isOnceMore || (code->second.empty() && isInBraces);
        }
        open = text.npos;
    }
    return isOnceMore ? converted(result) : result;
}

} // namespace qrtVistrelClasses4::bench
