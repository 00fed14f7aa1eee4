#include "bench/OlderTexts.h"

#include "bench/Dice.h"

#include <array>
#include <string_view>

namespace qrtVistrelClasses4::bench {

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
    for (std::string& text : texts)
        for (std::size_t made = 0; made < kPlaceholdersInText;) {
            text += dice.oneOf(replacements).placeholder;
            const std::size_t end = ++made * kTextSize / kPlaceholdersInText;
            while (text.size() < end)
                text += dice.oneOf(words);
            text.resize(end);
        }
    return texts;
}

} // namespace qrtVistrelClasses4::bench
