#include "playfile/Effects.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/ListControl.h"

#include "TestHost.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

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

TEST_F(EffectLists, OfferTheFixedEffectsBeforeTheOptionalOnesAreLoaded) {
    putSwitches("");
    playfile_.FillEffectList(&prefixes_, nullptr);
    playfile_.FillEffectList(nullptr, &suffixes_);
    EXPECT_EQ(prefixes_.content(), kFixedPrefixes + kStartLoop);
    EXPECT_EQ(suffixes_.content(), kFixedSuffixes + kEndLoopItem);
}

TEST_F(EffectLists, AreLoadedOncePerProcess) {
    KeptList prefixes2, suffixes2;
    EXPECT_FALSE(playfile_.LoadNewEffectLists(&prefixes_, &suffixes_, &prefixes2, &suffixes2)) << "no file";
    EXPECT_EQ(prefixes_.content(), "left over=1, ");
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
    putSwitches("[Effects]\r\nBORDER=-1\r\n");
    playfile_.FillEffectList(&prefixes_, nullptr);
    EXPECT_EQ(prefixes_.content(), kFixedPrefixes + without(kOptionalPrefixes, "Border=127, ") + kStartLoop);
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
