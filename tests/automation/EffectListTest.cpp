// The effect members with list boxes of a host. What the lists offer is tested with the library.
#include "settings/AppFolder.h"

#include "FakeListControl.h"

#include <qrtVistrelClasses4.h>

#include <cstdio>
#include <fstream>

namespace qrtVistrelClasses4 {
namespace {

class EffectLists : public AutomationTest {
protected:
    static IDispatch* nothing() { return nullptr; }

    ComPtr<_FrameInfoClass> playfile_ = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
    ComPtr<FakeListControl> prefixes_ = MakeObject<FakeListControl>();
    ComPtr<FakeListControl> suffixes_ = MakeObject<FakeListControl>();
};

TEST_F(EffectLists, AreFilledWithTextsAndCodes) {
    prefixes_->items = {{"left over", 1}};
    ASSERT_EQ(CallMethod(*playfile_.Get(), L"FillEffectList", {prefixes_.Get(), suffixes_.Get()}).code, S_OK);
    EXPECT_EQ(prefixes_->items.front(), std::make_pair(std::string("No Effects"), 0));
    EXPECT_EQ(prefixes_->items.back(), std::make_pair(std::string("Start Loop"), 20000));
    EXPECT_EQ(suffixes_->items.back(), std::make_pair(std::string("End Loop"), 20001));
}

TEST_F(EffectLists, AreSkippedWhenNothingIsGiven) {
    ASSERT_EQ(CallMethod(*playfile_.Get(), L"FillEffectList", {nothing(), suffixes_.Get()}).code, S_OK);
    EXPECT_EQ(suffixes_->items.back().first, "End Loop");
    ASSERT_EQ(playfile_->FillEffectList(prefixes_.Get(), nullptr), S_OK);
    EXPECT_EQ(prefixes_->items.back().first, "Start Loop");
}

TEST_F(EffectLists, OfDialogsEndWithoutLoops) {
    ASSERT_EQ(playfile_->RefreshEffectLists(prefixes_.Get(), suffixes_.Get()), S_OK);
    EXPECT_EQ(prefixes_->items.back().first, "Jump On");
    EXPECT_EQ(suffixes_->items.back().first, "Jump Off");
}

TEST_F(EffectLists, TrapTheErrorsOfTheControl) {
    prefixes_->refusal = E_FAIL;
    EXPECT_EQ(CallMethod(*playfile_.Get(), L"FillEffectList", {prefixes_.Get(), suffixes_.Get()}).code, S_OK);
    EXPECT_TRUE(suffixes_->items.empty());
}

// The last one here: from then on the process offers the optional effects.
TEST_F(EffectLists, AreReloadedOnceWithTheOptionalEffects) {
    const ComPtr<FakeListControl> prefixes2 = MakeObject<FakeListControl>();
    const ComPtr<FakeListControl> suffixes2 = MakeObject<FakeListControl>();
    const std::vector<Value> lists = {prefixes_.Get(), suffixes_.Get(), prefixes2.Get(), suffixes2.Get()};
    const auto load = [&] {
        return CallMethod(*playfile_.Get(), L"LoadNewEffectLists", lists).value.boolVal;
    };
    EXPECT_EQ(load(), VARIANT_FALSE) << "no file, no optional effects";

    const std::string file = GetAppFolder() + "NewEffects.ini";
    std::ofstream(file) << "[Effects]\nDROP=false\n";
    ASSERT_EQ(load(), VARIANT_TRUE);
    EXPECT_EQ(prefixes_->items.back().first, "Start Loop");
    EXPECT_EQ(prefixes2->items.back().first, "Barrel Horizontal On");
    EXPECT_EQ(suffixes2->items.back().first, "Barrel Horizontal Off");
    EXPECT_EQ(load(), VARIANT_FALSE) << "they are loaded already";
    std::remove(file.c_str());
}

} // namespace
} // namespace qrtVistrelClasses4
