#include "automation/HostListControl.h"
#include "frame/RuntimeError.h"

#include "FakeListControl.h"

#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

class HostListControlTest : public AutomationTest {
protected:
    ComPtr<FakeListControl> host_ = MakeObject<FakeListControl>();
    HostListControl list_{host_.Get()};
};

TEST_F(HostListControlTest, UsesTheMembersOfAListBox) {
    list_.AddItem("left over");
    list_.Clear();
    list_.AddItem("Wipe On");
    list_.ItemData(list_.NewIndex(), 2000);
    list_.AddItem("Jump On");
    list_.ItemData(list_.NewIndex(), 1000);
    EXPECT_EQ(list_.ListCount(), 2);
    EXPECT_EQ(host_->items, (FakeListControl::Items{{"Wipe On", 2000}, {"Jump On", 1000}}));
    list_.RemoveItem(0);
    EXPECT_EQ(host_->items, (FakeListControl::Items{{"Jump On", 1000}}));
}

TEST_F(HostListControlTest, HandsOnWhatTheControlTellsOfItsError) {
    struct Case {
        const char* why;
        HRESULT refusal;
        WORD code;
        SCODE longCode;
        const char* description;
        int wantedNumber;
        const char* wantedDescription;
    };
    const SCODE outOfMemory = static_cast<SCODE>(0x800A0007);
    const Case cases[] = {
        {"a run-time error", DISP_E_EXCEPTION, 0, outOfMemory, "Out of memory", 7, "Out of memory"},
        {"a code of the control's own", DISP_E_EXCEPTION, 381, 0, "Invalid index", 381, "Invalid index"},
        {"no run-time error", DISP_E_EXCEPTION, 0, E_FAIL, "Gone", 440, "Gone"},
        {"nothing told", DISP_E_EXCEPTION, 0, E_FAIL, "", 440, "Automation error"},
        {"a wrong type", DISP_E_TYPEMISMATCH, 0, 0, "", 13, "Type mismatch"},
        {"a disconnected object", RPC_E_DISCONNECTED, 0, 0, "", 440, "Automation error"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        host_->refusal = c.refusal;
        host_->exception.wCode = c.code;
        host_->exception.scode = c.longCode;
        host_->exception.bstrDescription = WideText(c.description).release();
        try {
            list_.Clear();
            ADD_FAILURE() << "no error";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), c.wantedNumber);
            EXPECT_EQ(error.description(), c.wantedDescription);
        }
        SysFreeString(std::exchange(host_->exception, {}).bstrDescription);
    }
}

TEST_F(HostListControlTest, RefusesObjectsThatAreNoListBox) {
    const ComPtr<_FrameInfoClass> playfile = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
    HostListControl list(playfile.Get());
    try {
        list.Clear();
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 438);
    }
}

TEST_F(HostListControlTest, NamesTheClassWhereTheControlTellsIt) {
    const ComPtr<_FrameInfoClass> playfile = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
    EXPECT_EQ(HostListControl(playfile.Get()).ClassName(), "FrameInfoClass");
    EXPECT_EQ(list_.ClassName(), "Object");
}

} // namespace
} // namespace qrtVistrelClasses4
