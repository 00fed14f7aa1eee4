#include "playfile/Effects.h"

#include "TestHost.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/ListControl.h"

#include <gtest/gtest.h>

#include <limits>

namespace qrtVistrelClasses4 {
namespace {

TEST(Effects, HaveNames) {
    const struct {
        std::int16_t code;
        const char *prefix, *suffix;
    } cases[] = {{10, "", "Reveal to Middle"},
                 {15, "Overlay Frame with Text", ""},
                 {114, "Checker Board On", "Checker Board"},
                 {127, "Border On", "Border Off"},
                 {9999, "PhotoRealistic", "PhotoRealistic"},
                 {20000, "", ""},
                 {20001, "Start Loop [1] times", "End Loop"},
                 {20099, "Start Loop [99] times", ""},
                 {20100, "", ""}};
    for (const auto& row : cases) {
        EXPECT_EQ(PrefixName(row.code), row.prefix) << row.code;
        EXPECT_EQ(SuffixName(row.code), row.suffix) << row.code;
    }
}

struct Codes {
    const char* text;
    std::int16_t prefix, suffix;
};

TEST(Effects, ConvertBackFromTheirTextsButForLoops) {
    const Codes cases[] = {{"Scroll Left to Right", 5001, 5001},
                           {"Reveal from Middle", 5, 0},
                           {"Reveal to Middle", 0, 10},
                           {"Twinkle On", 12005, 0},
                           {"Twinkle Off", 0, 12005},
                           {"Fade Out", 0, 11006},
                           {"Wipe Off", 0, 2000},
                           {"Jump Off", 0, 1000},
                           {"Overlay Frame with Text", 15, 0},
                           {"End Loop", 0, 20001},
                           {"Checker Board", 114, 114},
                           {"Drop", 115, 115},
                           {"Open", 116, 116},
                           {"Jaws", 117, 117},
                           {"Scan Horizontal", 118, 118},
                           {"Paint", 119, 119},
                           {"Shoot", 120, 120},
                           {"Venetian Blinds", 121, 121},
                           {"Vertical Blinds", 122, 122},
                           {"Scan Vertical", 123, 123},
                           {"Pulse", 124, 124},
                           {"Marquee Border", 125, 125},
                           {"Line Wipe", 126, 126},
                           {"Border", 127, 127},
                           {"Barrel Vertical", 128, 128},
                           {"Barrel Horizontal", 129, 129},
                           {"Drop Off", 0, 0},
                           {"PhotoRealistic", 0, 0},
                           {"[0.5", 0, 0},
                           {"]5[", 0, 0},
                           {"Start Loop [5] times", 0, 0},
                           {"7]", 0, 0}};
    TestHost host;
    FrameInfoClass playfile;
    for (const Codes& row : cases) {
        EXPECT_EQ(playfile.ConvertPrefixStringToCode(row.text), row.prefix) << row.text;
        EXPECT_EQ(playfile.ConvertSuffixStringToCode(row.text), row.suffix) << row.text;
    }
    EXPECT_EQ(host.reports.takeNumbers(), (Numbers{13, 13})) << "the last two, trapped";
}

TEST(Effects, HaveKeywordsInTheOlderFormat) {
    const Codes cases[] = {{"LR", 5001, 5001},   {"RL", 5000, 5000},   {"TB", 5003, 5003},
                           {"BT", 5002, 5002},   {"TW", 12005, 12005}, {"RM", 5, 5},
                           {"FD", 11006, 11006}, {"LD", 10000, 10000}, {"LW", 2000, 2000},
                           {"JO", 1000, 1000},   {"OT", 0, 0},         {"LP", 0, 20001},
                           {"lr", 0, 0},         {"7", 20007, 0},      {"-3", 0, 0},
                           {"7X", 0, 0},         {"12767", 32767, 0}};
    for (const Codes& row : cases) {
        EXPECT_EQ(PrefixCodeOfKeyword(row.text), row.prefix) << row.text;
        EXPECT_EQ(SuffixCodeOfKeyword(row.text), row.suffix) << row.text;
    }
}

/// The list box of a screen.
struct KeptList final : ListControl {
    std::string ClassName() const override { return "ComboBox"; }
    void Clear() override { items.clear(); }
    void AddItem(const std::string& text) override { items.emplace_back(text, -1); }
    std::int32_t NewIndex() override { return ListCount() - 1; }
    void ItemData(std::int32_t index, std::int32_t data) override {
        items.at(static_cast<std::size_t>(index)).second = data;
    }
    std::int32_t ListCount() override { return static_cast<std::int32_t>(items.size()); }
    void RemoveItem(std::int32_t index) override { items.erase(items.begin() + index); }

    /// "text=code, " of every item.
    std::string content() const {
        std::string result;
        for (const auto& [text, code] : items)
            result += text + "=" + std::to_string(code) + ", ";
        return result;
    }

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
const std::string kOptionalPrefixes =
    "Checker Board On=114, Drop On=115, Open from Middle On=116, Jaws On=117, Scan Horizontal On=118, "
    "Paint On=119, Shoot On=120, Venetian Blinds On=121, Vertical Blinds On=122, Scan Vertical On=123, "
    "Pulse On=124, Marquee Border On=125, Line Wipe On=126, Border=127, Barrel Vertical On=128, "
    "Barrel Horizontal On=129, ";
const std::string kOptionalSuffixes =
    "Checker Board Off=114, Drop Off=115, Open from Middle Off=116, Jaws Off=117, Scan Horizontal Off=118, "
    "Paint Off=119, Shoot Off=120, Venetian Blinds Off=121, Vertical Blinds Off=122, Scan Vertical Off=123, "
    "Pulse Off=124, Marquee Border Off=125, Line Wipe Off=126, Barrel Vertical Off=128, "
    "Barrel Horizontal Off=129, ";

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
    const Texts dialogLists_{kFixedPrefixes + kOptionalPrefixes, kFixedSuffixes + kOptionalSuffixes};
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
    for (const auto& [text, code] : prefixes2_.items) {
        const auto number = static_cast<std::int16_t>(code);
        EXPECT_TRUE(PrefixName(number) == text || text == "Border") << text;
        EXPECT_EQ(PrefixCodeOf(text), number < 114 || number > 129 || text == "Border" ? number : 0) << text;
    }
    for (const auto& [text, code] : suffixes2_.items) {
        const auto number = static_cast<std::int16_t>(code);
        EXPECT_TRUE(SuffixName(number) == text || number == 114) << text;
        EXPECT_EQ(SuffixCodeOf(text), number < 114 || number > 129 ? number : 0) << text;
    }
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
    EXPECT_EQ(prefixes_.content(), kFixedPrefixes + kOptionalPrefixes.substr(kOptionalPrefixes.find("Open")))
        << "only TRUE in capitals is on";
}

TEST_F(EffectLists, TrapACountThatNoNumberPrecedes) {
    struct OddList final : ListControl {
        std::string ClassName() const override { return "ComboBox"; }
        void Clear() override {}
        void AddItem(const std::string&) override {}
        std::int32_t NewIndex() override { return 0; }
        void ItemData(std::int32_t, std::int32_t) override {}
        std::int32_t ListCount() override { return std::numeric_limits<std::int32_t>::min(); }
        void RemoveItem(std::int32_t index) override { ADD_FAILURE() << index; }
    } list;
    playfile_.RefreshEffectLists(&list, nullptr);
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
}

} // namespace
} // namespace qrtVistrelClasses4
