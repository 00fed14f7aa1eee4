#include "playfile/Effects.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/ListControl.h"

#include "TestHost.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// The list box of a screen.
class KeptList final : public ListControl {
public:
    std::string ClassName() const override { return "ComboBox"; }
    void Clear() override { items.clear(); }
    void AddItem(const std::string& text) override { items.emplace_back(text, -1); }
    std::int32_t NewIndex() override { return ListCount() - 1; }
    void ItemData(std::int32_t index, std::int32_t data) override {
        items.at(static_cast<std::size_t>(index)).second = data;
    }
    std::int32_t ListCount() override { return static_cast<std::int32_t>(items.size()); }
    void RemoveItem(std::int32_t index) override { items.erase(items.begin() + index); }

    /// "text=code" of every item.
    Texts texts() const {
        Texts result;
        for (const auto& [text, code] : items)
            result.push_back(text + "=" + std::to_string(code));
        return result;
    }

    std::vector<std::pair<std::string, std::int32_t>> items{{"left over", 1}};
};

const Texts kFixedPrefixes{"No Effects=0",
                           "Scroll Left to Right=5001",
                           "Scroll Right to Left=5000",
                           "Scroll Top to Bottom=5003",
                           "Scroll Bottom to Top=5002",
                           "Twinkle On=12005",
                           "Reveal from Middle=5",
                           "Fade In=11006",
                           "Horizontal Line Drop=10000",
                           "Wipe On=2000",
                           "Jump On=1000"};
const Texts kFixedSuffixes{"No Effects=0",
                           "Scroll Left to Right=5001",
                           "Scroll Right to Left=5000",
                           "Scroll Top to Bottom=5003",
                           "Scroll Bottom to Top=5002",
                           "Twinkle Off=12005",
                           "Reveal to Middle=10",
                           "Fade Out=11006",
                           "Horizontal Line Drop=10000",
                           "Wipe Off=2000",
                           "Jump Off=1000"};
const Texts kOptionalPrefixes{"Checker Board On=114",
                              "Drop On=115",
                              "Open from Middle On=116",
                              "Jaws On=117",
                              "Scan Horizontal On=118",
                              "Paint On=119",
                              "Shoot On=120",
                              "Venetian Blinds On=121",
                              "Vertical Blinds On=122",
                              "Scan Vertical On=123",
                              "Pulse On=124",
                              "Marquee Border On=125",
                              "Line Wipe On=126",
                              "Border=127",
                              "Barrel Vertical On=128",
                              "Barrel Horizontal On=129"};
const Texts kOptionalSuffixes{"Checker Board Off=114",
                              "Drop Off=115",
                              "Open from Middle Off=116",
                              "Jaws Off=117",
                              "Scan Horizontal Off=118",
                              "Paint Off=119",
                              "Shoot Off=120",
                              "Venetian Blinds Off=121",
                              "Vertical Blinds Off=122",
                              "Scan Vertical Off=123",
                              "Pulse Off=124",
                              "Marquee Border Off=125",
                              "Line Wipe Off=126",
                              "Barrel Vertical Off=128",
                              "Barrel Horizontal Off=129"};

Texts joined(Texts first, const Texts& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}
Texts without(Texts texts, const std::string& text) {
    texts.erase(std::remove(texts.begin(), texts.end(), text), texts.end());
    return texts;
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
    playfile_.FillEffectList(&prefixes_, &suffixes_);
    EXPECT_EQ(prefixes_.texts(), joined(kFixedPrefixes, {"Start Loop=20000"}));
    EXPECT_EQ(suffixes_.texts(), joined(kFixedSuffixes, {"End Loop=20001"}));
    playfile_.FillEffectList(nullptr, &suffixes_);
    playfile_.FillEffectList(nullptr, nullptr);
    EXPECT_EQ(suffixes_.texts(), joined(kFixedSuffixes, {"End Loop=20001"}));
}

TEST_F(EffectLists, AreLoadedOncePerProcess) {
    KeptList prefixes2, suffixes2;
    EXPECT_FALSE(playfile_.LoadNewEffectLists(&prefixes_, &suffixes_, &prefixes2, &suffixes2)) << "no file";
    EXPECT_EQ(prefixes_.texts(), Texts{"left over=1"});
    putSwitches("");
    EXPECT_TRUE(playfile_.LoadNewEffectLists(&prefixes_, &suffixes_, &prefixes2, &suffixes2));
    EXPECT_EQ(prefixes_.texts(), joined(joined(kFixedPrefixes, kOptionalPrefixes), {"Start Loop=20000"}));
    EXPECT_EQ(suffixes_.texts(), joined(joined(kFixedSuffixes, kOptionalSuffixes), {"End Loop=20001"}));
    EXPECT_EQ(prefixes2.texts(), joined(kFixedPrefixes, kOptionalPrefixes));
    EXPECT_EQ(suffixes2.texts(), joined(kFixedSuffixes, kOptionalSuffixes));
    EXPECT_FALSE(FrameInfoClass().LoadNewEffectLists(&prefixes_, nullptr, nullptr, nullptr));
}

TEST_F(EffectLists, FollowTheSwitchesAtEveryFilling) {
    putSwitches("[Effects]\r\nDROP=true\r\nJAWS=FALSE\r\nPULSE=TRUE\r\n");
    playfile_.LoadNewEffectLists(nullptr, nullptr, nullptr, nullptr);
    playfile_.FillEffectList(&prefixes_, &suffixes_);
    EXPECT_EQ(
        prefixes_.texts(),
        joined(joined(kFixedPrefixes, without(without(kOptionalPrefixes, "Drop On=115"), "Jaws On=117")),
               {"Start Loop=20000"}))
        << "only TRUE in capitals is on";
    putSwitches("[Effects]\r\nBORDER=-1\r\n");
    playfile_.FillEffectList(&prefixes_, nullptr);
    EXPECT_EQ(prefixes_.texts(),
              joined(joined(kFixedPrefixes, without(kOptionalPrefixes, "Border=127")), {"Start Loop=20000"}));
}

TEST_F(EffectLists, OfADialogEndWithoutTheirLoops) {
    playfile_.RefreshEffectLists(&prefixes_, &suffixes_);
    EXPECT_EQ(prefixes_.texts(), kFixedPrefixes);
    EXPECT_EQ(suffixes_.texts(), kFixedSuffixes);
    putSwitches("");
    for (const char* why : {"the call that loads", "the calls after it"}) {
        SCOPED_TRACE(why);
        playfile_.RefreshEffectLists(&prefixes_, &suffixes_);
        EXPECT_EQ(prefixes_.texts(), joined(kFixedPrefixes, kOptionalPrefixes));
        EXPECT_EQ(suffixes_.texts(), joined(kFixedSuffixes, kOptionalSuffixes));
    }
}

TEST_F(EffectLists, TrapWhatAControlRefuses) {
    class Refusing final : public ListControl {
        std::string ClassName() const override { return "ListBox"; }
        void Clear() override { throw RuntimeError(438, "Object doesn't support this property or method"); }
        void AddItem(const std::string&) override {}
        std::int32_t NewIndex() override { return 0; }
        void ItemData(std::int32_t, std::int32_t) override {}
        std::int32_t ListCount() override { return 0; }
        void RemoveItem(std::int32_t) override {}
    } refusing;
    playfile_.FillEffectList(&refusing, &suffixes_);
    EXPECT_EQ(host_.reports.all.at(0).procedure.arguments, "(prefixList=<ListBox>, suffixList=<ComboBox>)");
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{438});
}

} // namespace
} // namespace qrtVistrelClasses4
