#include "playfile/Effects.h"

#include "TestHost.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/ListControl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

TEST(Effects, ConvertBackFromTheirTextsButForLoops) {
    const std::tuple<const char*, int, int> cases[] = {// clang-format off
        {"Scroll Left to Right", 5001, 5001}, {"Reveal from Middle", 5, 0}, {"Reveal to Middle", 0, 10},
        {"Twinkle Off", 0, 12005}, {"Overlay Frame with Text", 15, 0}, {"End Loop", 0, 20001}, {"Drop", 115, 115},
        {"Border", 127, 127}, {"Drop On", 0, 0}, {"Drop Off", 0, 0}, {"PhotoRealistic", 0, 0}, {"[0.5", 0, 0},
        {"]5[", 0, 0}, {"Start Loop [5] times", 0, 0}, {"7]", 0, 0}};
    // clang-format on
    TestHost host;
    FrameInfoClass playfile;
    for (const auto& [text, prefix, suffix] : cases) {
        EXPECT_EQ(playfile.ConvertPrefixStringToCode(text), prefix) << text;
        EXPECT_EQ(playfile.ConvertSuffixStringToCode(text), suffix) << text;
    }
    EXPECT_EQ(host.reports.takeNumbers(), (Numbers{13, 13})) << "the last two, trapped";
    for (const OptionalEffect& effect : kOptionalEffects)
        EXPECT_TRUE(effect.prefixName.starts_with(effect.bareName)) << effect.bareName;
}

/// The list box of a screen. `vistrel effects` shows the texts of its items.
struct KeptList final : ListControl {
    std::string ClassName() const override { return "ComboBox"; }
    void Clear() override { codes.clear(); }
    void AddItem(const std::string&) override { codes.push_back(-1); }
    std::int32_t NewIndex() override { return static_cast<std::int32_t>(codes.size()) - 1; }
    void ItemData(std::int32_t index, std::int32_t data) override {
        codes.at(static_cast<std::size_t>(index)) = data;
    }
    std::int32_t ListCount() override { return oddCount != 0 ? oddCount : NewIndex() + 1; }
    void RemoveItem(std::int32_t index) override { codes.erase(codes.begin() + index); }

    std::int32_t oddCount = 0; ///< Other than 0: what the list says instead of its number of items.
    Numbers codes{1};
};

/// Those that every list has, and both kinds of others.
Numbers prefixes(const Numbers& others = {}, const Numbers& loops = {}) {
    Numbers codes{0, 5001, 5000, 5003, 5002, 12005, 5, 11006, 10000, 2000, 1000};
    codes.insert(codes.end(), others.begin(), others.end());
    codes.insert(codes.end(), loops.begin(), loops.end());
    return codes;
}
Numbers suffixes(const Numbers& others = {}, const Numbers& loops = {}) {
    Numbers codes = prefixes(others, loops);
    std::ranges::replace(codes, 5, 10);
    std::ranges::replace(codes, 20000, 20001);
    std::erase(codes, 127);
    return codes;
}
const Numbers kOptional{114, 115, 116, 117, 118, 119, 120, 121, 122, 123, 124, 125, 126, 127, 128, 129};

struct EffectLists : testing::Test {
    EffectLists() { NewEffectsLoaded = false; }
    ~EffectLists() override { NewEffectsLoaded = false; }
    void putSwitches(const std::string& text) {
        host_.machine.files().put(host_.inLibrary("NewEffects.ini"), text);
    }

    TestHost host_;
    FrameInfoClass playfile_;
    KeptList prefixes_, suffixes_, prefixes2_, suffixes2_;
};

TEST_F(EffectLists, OfferTheOptionalEffectsOnceTheyAreLoadedWhichIsOncePerProcess) {
    EXPECT_FALSE(playfile_.LoadNewEffectLists(&prefixes_, &suffixes_, &prefixes2_, &suffixes2_)) << "no file";
    EXPECT_EQ(prefixes_.codes, Numbers{1});
    playfile_.FillEffectList(&prefixes_, nullptr);
    playfile_.FillEffectList(nullptr, &suffixes_);
    EXPECT_EQ(std::pair(prefixes_.codes, suffixes_.codes),
              std::pair(prefixes({}, {20000}), suffixes({}, {20000})));
    putSwitches("");
    EXPECT_TRUE(playfile_.LoadNewEffectLists(&prefixes_, &suffixes_, &prefixes2_, &suffixes2_));
    EXPECT_EQ(prefixes_.codes, prefixes(kOptional, {20000}));
    EXPECT_EQ(suffixes_.codes, suffixes(kOptional, {20000}));
    EXPECT_EQ(std::pair(prefixes2_.codes, suffixes2_.codes),
              std::pair(prefixes(kOptional), suffixes(kOptional)));
    EXPECT_FALSE(FrameInfoClass().LoadNewEffectLists(&prefixes_, nullptr, nullptr, nullptr));
}

TEST_F(EffectLists, OfADialogEndWithoutTheirLoopsAndFollowTheSwitchesAtEveryFilling) {
    playfile_.RefreshEffectLists(&prefixes_, &suffixes_);
    EXPECT_EQ(std::pair(prefixes_.codes, suffixes_.codes), std::pair(prefixes(), suffixes()));
    putSwitches("");
    for (const char* why : {"the call that loads", "the calls after it"}) {
        playfile_.RefreshEffectLists(&prefixes_, &suffixes_);
        EXPECT_EQ(prefixes_.codes, prefixes(kOptional)) << why;
        EXPECT_EQ(suffixes_.codes, suffixes(kOptional)) << why;
    }
    putSwitches("[Effects]\r\nCHECKER=true\r\nDROP=FALSE\r\nPULSE=TRUE\r\n");
    playfile_.RefreshEffectLists(&prefixes_, nullptr);
    EXPECT_EQ(prefixes_.codes, prefixes(Numbers(kOptional.begin() + 2, kOptional.end())))
        << "only TRUE in capitals is on";
}

TEST_F(EffectLists, TrapACountThatNoNumberPrecedes) {
    prefixes_.oddCount = std::numeric_limits<std::int32_t>::min();
    playfile_.RefreshEffectLists(&prefixes_, nullptr);
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
}

} // namespace
} // namespace qrtVistrelClasses4
