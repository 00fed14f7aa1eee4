#include "playfile/Effects.h"

#include "TestHost.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/ListControl.h>

#include <gtest/gtest.h>

#include <limits>

namespace qrtVistrelClasses4 {
namespace {

TEST(Effects, HaveNames) {
    const struct {
        std::int16_t code;
        const char *prefix, *suffix;
    } cases[] = {// clang-format off
        {10, "", "Reveal to Middle"}, {15, "Overlay Frame with Text", ""}, {114, "Checker Board On", "Checker Board"},
        {127, "Border On", "Border Off"}, {9999, "PhotoRealistic", "PhotoRealistic"}, {20000, "", ""},
        {20001, "Start Loop [1] times", "End Loop"}, {20099, "Start Loop [99] times", ""}, {20100, "", ""}};
    // clang-format on
    for (const auto& row : cases) {
        EXPECT_EQ(PrefixName(row.code).value_or(""), row.prefix) << row.code;
        EXPECT_EQ(SuffixName(row.code).value_or(""), row.suffix) << row.code;
    }
}

struct Codes {
    const char* text;
    std::int16_t prefix, suffix;
};

TEST(Effects, ConvertBackFromTheirTextsButForLoops) {
    const Codes cases[] = {// clang-format off
        {"Scroll Left to Right", 5001, 5001}, {"Reveal from Middle", 5, 0}, {"Reveal to Middle", 0, 10},
        {"Twinkle Off", 0, 12005}, {"Overlay Frame with Text", 15, 0}, {"End Loop", 0, 20001}, {"Drop Off", 0, 0},
        {"PhotoRealistic", 0, 0}, {"[0.5", 0, 0}, {"]5[", 0, 0}, {"Start Loop [5] times", 0, 0}, {"7]", 0, 0}};
    // clang-format on
    TestHost host;
    FrameInfoClass playfile;
    for (const Codes& row : cases) {
        EXPECT_EQ(playfile.ConvertPrefixStringToCode(row.text), row.prefix) << row.text;
        EXPECT_EQ(playfile.ConvertSuffixStringToCode(row.text), row.suffix) << row.text;
    }
    EXPECT_EQ(host.reports.takeNumbers(), (Numbers{13, 13})) << "the last two, trapped";
    for (const OptionalEffect& effect : kOptionalEffects) {
        EXPECT_EQ(PrefixCodeOf(effect.bareName), effect.code);
        EXPECT_EQ(SuffixCodeOf(effect.bareName), effect.code);
        EXPECT_TRUE(effect.prefixName.starts_with(effect.bareName));
    }
}

/// The list box of a screen.
struct KeptList final : ListControl {
    std::string ClassName() const override { return "ComboBox"; }
    void Clear() override { items.clear(); }
    void AddItem(const std::string& text) override { items.emplace_back(text, -1); }
    std::int32_t NewIndex() override { return static_cast<std::int32_t>(items.size()) - 1; }
    void ItemData(std::int32_t index, std::int32_t data) override {
        items.at(static_cast<std::size_t>(index)).second = data;
    }
    std::int32_t ListCount() override { return oddCount != 0 ? oddCount : NewIndex() + 1; }
    void RemoveItem(std::int32_t index) override { items.erase(items.begin() + index); }

    /// "text=code, " of every item.
    std::string content() const {
        std::string result;
        for (const auto& [text, code] : items)
            result += text + "=" + std::to_string(code) + ", ";
        return result;
    }

    std::int32_t oddCount = 0; ///< Other than 0: what the list says instead of its number of items.
    std::vector<std::pair<std::string, std::int32_t>> items{{"left over", 1}};
};

const std::string kFixedPrefixes =
    "No Effects=0, Scroll Left to Right=5001, Scroll Right to Left=5000, Scroll Top to Bottom=5003, "
    "Scroll Bottom to Top=5002, Twinkle On=12005, Reveal from Middle=5, Fade In=11006, "
    "Horizontal Line Drop=10000, Wipe On=2000, Jump On=1000, ";
const std::string kFixedSuffixes =
    "No Effects=0, Scroll Left to Right=5001, Scroll Right to Left=5000, Scroll Top to Bottom=5003, "
    "Scroll Bottom to Top=5002, Twinkle Off=12005, Reveal to Middle=10, Fade Out=11006, "
    "Horizontal Line Drop=10000, Wipe Off=2000, Jump Off=1000, ";
/// Lists show the names of the optional effects, but for these.
std::string optionalPrefixes() {
    std::string list;
    for (std::int16_t code = 114; code <= 129; ++code)
        list += (code == 127 ? "Border" : PrefixName(code).value()) + "=" + std::to_string(code) + ", ";
    return list;
}
std::string optionalSuffixes() {
    std::string list;
    for (std::int16_t code = 114; code <= 129; ++code)
        if (code != 127)
            list += SuffixName(code).value() + (code == 114 ? " Off=" : "=") + std::to_string(code) + ", ";
    return list;
}

struct EffectLists : testing::Test {
    EffectLists() { NewEffectsLoaded = false; }
    ~EffectLists() override { NewEffectsLoaded = false; }
    void putSwitches(const std::string& text) {
        host_.machine.files().put(host_.inLibrary("NewEffects.ini"), text);
    }
    Texts lists() { return {prefixes_.content(), suffixes_.content()}; }

    TestHost host_;
    FrameInfoClass playfile_;
    KeptList prefixes_, suffixes_, prefixes2_, suffixes2_;
    const Texts dialogLists_{kFixedPrefixes + optionalPrefixes(), kFixedSuffixes + optionalSuffixes()};
};

TEST_F(EffectLists, OfferTheOptionalEffectsOnceTheyAreLoadedWhichIsOncePerProcess) {
    EXPECT_FALSE(playfile_.LoadNewEffectLists(&prefixes_, &suffixes_, &prefixes2_, &suffixes2_)) << "no file";
    EXPECT_EQ(prefixes_.content(), "left over=1, ");
    playfile_.FillEffectList(&prefixes_, nullptr);
    playfile_.FillEffectList(nullptr, &suffixes_);
    EXPECT_EQ(lists(), (Texts{kFixedPrefixes + "Start Loop=20000, ", kFixedSuffixes + "End Loop=20001, "}));
    putSwitches("");
    EXPECT_TRUE(playfile_.LoadNewEffectLists(&prefixes_, &suffixes_, &prefixes2_, &suffixes2_));
    EXPECT_EQ(lists(), (Texts{dialogLists_[0] + "Start Loop=20000, ", dialogLists_[1] + "End Loop=20001, "}));
    EXPECT_EQ((Texts{prefixes2_.content(), suffixes2_.content()}), dialogLists_);
    EXPECT_FALSE(FrameInfoClass().LoadNewEffectLists(&prefixes_, nullptr, nullptr, nullptr));
    for (const auto& [text, code] : prefixes2_.items)
        EXPECT_EQ(PrefixCodeOf(text).value_or(0), code < 114 || code > 129 || text == "Border" ? code : 0)
            << text;
    for (const auto& [text, code] : suffixes2_.items)
        EXPECT_EQ(SuffixCodeOf(text).value_or(0), code < 114 || code > 129 ? code : 0) << text;
}

TEST_F(EffectLists, OfADialogEndWithoutTheirLoopsAndFollowTheSwitchesAtEveryFilling) {
    playfile_.RefreshEffectLists(&prefixes_, &suffixes_);
    EXPECT_EQ(lists(), (Texts{kFixedPrefixes, kFixedSuffixes}));
    putSwitches("");
    for (const char* why : {"the call that loads", "the calls after it"}) {
        playfile_.RefreshEffectLists(&prefixes_, &suffixes_);
        EXPECT_EQ(lists(), dialogLists_) << why;
    }
    putSwitches("[Effects]\r\nCHECKER=true\r\nDROP=FALSE\r\nPULSE=TRUE\r\n");
    playfile_.RefreshEffectLists(&prefixes_, nullptr);
    EXPECT_EQ(prefixes_.content(),
              kFixedPrefixes + optionalPrefixes().substr(optionalPrefixes().find("Open")))
        << "only TRUE in capitals is on";
}

TEST_F(EffectLists, TrapACountThatNoNumberPrecedes) {
    prefixes_.oddCount = std::numeric_limits<std::int32_t>::min();
    playfile_.RefreshEffectLists(&prefixes_, nullptr);
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
}

} // namespace
} // namespace qrtVistrelClasses4
