#include "playfile/Effects.h"

#include "TestHost.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/ListControl.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(Effects, HaveNames) {
    const struct {
        std::int16_t code;
        const char *prefix, *suffix;
    } cases[] = {{0, "No Effects", "No Effects"},
                 {5, "Reveal from Middle", ""},
                 {10, "", "Reveal to Middle"},
                 {15, "Overlay Frame with Text", ""},
                 {114, "Checker Board On", "Checker Board"},
                 {127, "Border On", "Border Off"},
                 {9999, "PhotoRealistic", "PhotoRealistic"},
                 {11006, "Fade In", "Fade Out"},
                 {20001, "Start Loop [1] times", "End Loop"},
                 {20099, "Start Loop [99] times", ""}};
    for (const auto& row : cases) {
        EXPECT_EQ(PrefixName(row.code), row.prefix) << row.code;
        EXPECT_EQ(SuffixName(row.code), row.suffix) << row.code;
    }
    for (const OptionalEffect& effect : kOptionalEffects)
        if (effect.code != 114 && effect.code != 127) {
            EXPECT_EQ(PrefixName(effect.code), effect.prefixListText);
            EXPECT_EQ(SuffixName(effect.code), effect.suffixListText);
        }
    for (const int code : {-1, 130, 2001, 20000, 20100})
        EXPECT_EQ(PrefixName(static_cast<std::int16_t>(code)) + SuffixName(static_cast<std::int16_t>(code)),
                  "");
}

TEST(Effects, ConvertBackFromTheirTexts) {
    const struct {
        const char* text;
        std::int16_t prefix, suffix;
    } cases[] = {{"Scroll Left to Right", 5001, 5001},
                 {"Reveal from Middle", 5, 0},
                 {"Reveal to Middle", 0, 10},
                 {"Twinkle On", 12005, 0},
                 {"Overlay Frame with Text", 15, 0},
                 {"End Loop", 0, 20001},
                 {"Checker Board", 114, 114},
                 {"Open", 116, 116},
                 {"Border", 127, 127}};
    for (const auto& row : cases) {
        EXPECT_EQ(PrefixCodeOf(row.text), row.prefix) << row.text;
        EXPECT_EQ(SuffixCodeOf(row.text), row.suffix) << row.text;
    }
    // The first three stand on screens all the same.
    for (const char* text :
         {"Checker Board On", "Drop Off", "PhotoRealistic", "wipe on", "", "[]", "[x]", "[-3]", "] ["})
        EXPECT_EQ(PrefixCodeOf(text) + SuffixCodeOf(text), 0) << text;
}

TEST(Effects, TrapTheTextOfALoopInsteadOfConvertingIt) {
    TestHost host;
    FrameInfoClass playfile;
    struct Case {
        const char* text;
        Numbers errors;
    };
    for (const Case& row : {Case{"Start Loop [5] times", {13}}, Case{"7]", {13}}, Case{"[0.5]", {13}},
                            Case{"[0.5", {}}, Case{"]5[", {}}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(playfile.ConvertPrefixStringToCode(row.text), 0);
        EXPECT_EQ(host.reports.takeNumbers(), row.errors);
        EXPECT_EQ(playfile.ConvertSuffixStringToCode(row.text), 0);
        EXPECT_TRUE(host.reports.all.empty());
    }
}

TEST(Effects, HaveKeywordsInTheOlderFormat) {
    const struct {
        const char* keyword;
        std::int16_t prefix, suffix;
    } cases[] = {{"LR", 5001, 5001},   {"RL", 5000, 5000}, {"TB", 5003, 5003},   {"BT", 5002, 5002},
                 {"TW", 12005, 12005}, {"RM", 5, 5},       {"FD", 11006, 11006}, {"LD", 10000, 10000},
                 {"LW", 2000, 2000},   {"JO", 1000, 1000}, {"OT", 0, 0},         {"LP", 0, 20001},
                 {"7", 20007, 0},      {"0", 0, 0},        {"-3", 0, 0},         {"lr", 0, 0},
                 {"7X", 0, 0},         {"12767", 32767, 0}};
    for (const auto& row : cases) {
        EXPECT_EQ(PrefixCodeOfKeyword(row.keyword), row.prefix) << row.keyword;
        EXPECT_EQ(SuffixCodeOfKeyword(row.keyword), row.suffix) << row.keyword;
    }
    TestHost host;
    EXPECT_EQ(ConvertPrefixKeywordToCode("12768"), 0);
    EXPECT_EQ(host.reports.takeNumbers(), Numbers{6});
    EXPECT_EQ(ConvertSuffixKeywordToCode("LP"), 20001);
}

/// The list box of a screen.
class KeptList final : public ListControl {
public:
    std::string ClassName() const override { return "ComboBox"; }
    void Clear() override {
        if (refuses)
            throw RuntimeError(438, "Object doesn't support this property or method");
        items.clear();
    }
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
    bool refuses = false;
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
const std::string kStartLoop = "Start Loop=20000, ";
const std::string kEndLoopItem = "End Loop=20001, ";

std::string without(std::string list, const std::string& item) {
    return list.erase(list.find(item), item.size());
}

class EffectLists : public testing::Test {
protected:
    EffectLists() { NewEffectsLoaded = false; }
    ~EffectLists() override { NewEffectsLoaded = false; }
    void putSwitches(const std::string& text) {
        host_.machine.files().put(host_.inLibrary("NewEffects.ini"), text);
    }

    TestHost host_;
    FrameInfoClass playfile_;
    KeptList prefixes_, suffixes_;
};

TEST_F(EffectLists, OfferTheOptionalEffectsOnceTheyAreLoadedWhichIsOncePerProcess) {
    playfile_.FillEffectList(&prefixes_, nullptr);
    playfile_.FillEffectList(nullptr, &suffixes_);
    EXPECT_EQ(prefixes_.content(), kFixedPrefixes + kStartLoop);
    EXPECT_EQ(suffixes_.content(), kFixedSuffixes + kEndLoopItem);
    KeptList prefixes2, suffixes2;
    EXPECT_FALSE(playfile_.LoadNewEffectLists(&prefixes_, &suffixes_, &prefixes2, &suffixes2)) << "no file";
    EXPECT_EQ(prefixes2.content(), "left over=1, ");
    putSwitches("");
    EXPECT_TRUE(playfile_.LoadNewEffectLists(&prefixes_, &suffixes_, &prefixes2, &suffixes2));
    EXPECT_EQ(prefixes_.content(), kFixedPrefixes + kOptionalPrefixes + kStartLoop);
    EXPECT_EQ(suffixes_.content(), kFixedSuffixes + kOptionalSuffixes + kEndLoopItem);
    EXPECT_EQ(prefixes2.content(), kFixedPrefixes + kOptionalPrefixes);
    EXPECT_EQ(suffixes2.content(), kFixedSuffixes + kOptionalSuffixes);
    EXPECT_FALSE(FrameInfoClass().LoadNewEffectLists(&prefixes_, nullptr, nullptr, nullptr));
}

TEST_F(EffectLists, FollowTheSwitchesAtEveryFilling) {
    putSwitches("[Effects]\r\nDROP=true\r\nJAWS=FALSE\r\nPULSE=TRUE\r\n");
    playfile_.LoadNewEffectLists(nullptr, nullptr, nullptr, nullptr);
    playfile_.FillEffectList(&prefixes_, nullptr);
    EXPECT_EQ(prefixes_.content(), kFixedPrefixes +
                                       without(without(kOptionalPrefixes, "Drop On=115, "), "Jaws On=117, ") +
                                       kStartLoop)
        << "only TRUE in capitals is on";
}

TEST_F(EffectLists, OfADialogEndWithoutTheirLoops) {
    playfile_.RefreshEffectLists(&prefixes_, &suffixes_);
    EXPECT_EQ(prefixes_.content(), kFixedPrefixes);
    putSwitches("");
    for (const char* why : {"the call that loads", "the calls after it"}) {
        SCOPED_TRACE(why);
        playfile_.RefreshEffectLists(&prefixes_, &suffixes_);
        EXPECT_EQ(prefixes_.content(), kFixedPrefixes + kOptionalPrefixes);
        EXPECT_EQ(suffixes_.content(), kFixedSuffixes + kOptionalSuffixes);
    }
}

TEST_F(EffectLists, TrapWhatAControlRefuses) {
    prefixes_.refuses = true;
    playfile_.FillEffectList(&prefixes_, nullptr);
    EXPECT_EQ(host_.reports.all.at(0).procedure.arguments, "(prefixList=<ComboBox>, suffixList=<Nothing>)");
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{438});
}

} // namespace
} // namespace qrtVistrelClasses4
