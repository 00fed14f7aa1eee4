#include "automation/DispatchObject.h"
#include "automation/PublicClasses.h"
#include "displays/DisplayDatabaseClass.h"

#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

class DisplayDatabaseObject
    : public DispatchObject<_DisplayDatabaseClass, ::DisplayDatabaseClass, DisplayDatabaseClass> {
public:
    // Identity and cursors.
    STDMETHODIMP get_ClassDebugID(VARIANT* result) override { return get(&Core::ClassDebugID, result); }
    QRT_PROPERTY(short, CurrentDisplayNumber);
    QRT_PROPERTY(short, CurrentBrightnessScheduleNumber);
    STDMETHODIMP get_TotalDisplays(short* result) override { return get(&Core::TotalDisplays, result); }

    // The file.
    STDMETHODIMP WriteAllDisplaysToDisk(VARIANT* sFileName) override {
        return onFile(&Core::WriteAllDisplaysToDisk, &Core::WriteAllDisplaysToDisk, sFileName);
    }
    STDMETHODIMP RetrieveAllDisplayInfoFromDisk(VARIANT* sFileName) override {
        return onFile(&Core::RetrieveAllDisplayInfoFromDisk, &Core::RetrieveAllDisplayInfoFromDisk,
                      sFileName);
    }

    // The list.
    STDMETHODIMP FindDisplayByName(BSTR theName, short* result) override {
        return give(result, [&] { return core_->FindDisplayByName(NarrowText(theName)); });
    }
    STDMETHODIMP AddNewDisplay(BSTR DisplayName, short* result) override {
        return give(result, [&] { return core_->AddNewDisplay(NarrowText(DisplayName)); });
    }
    STDMETHODIMP RemoveDisplay(short displayNumber, VARIANT_BOOL* result) override {
        return give(result, [&] { return core_->RemoveDisplay(displayNumber); });
    }
    STDMETHODIMP Duplicate(BSTR OriginalDisplayName, BSTR NewDisplayName, VARIANT* result) override {
        const HRESULT done = give(result, [&] {
            return core_->Duplicate(NarrowText(OriginalDisplayName), NarrowText(NewDisplayName));
        });
        // A number is 32 bits wide, but -1, which tells that there is none, 16 bits.
        if (SUCCEEDED(done) && V_I4(result) == -1) {
            V_VT(result) = VT_I2;
            V_I2(result) = -1;
        }
        return done;
    }

    // Texts for people.
    STDMETHODIMP TranslateConnectionMethodToString(short iConnectionMethod, BSTR* result) override {
        return give(result, [&] { return core_->TranslateConnectionMethodToString(iConnectionMethod); });
    }
    STDMETHODIMP GetConnectionInfoInString(BSTR* result) override {
        return get(&Core::GetConnectionInfoInString, result);
    }
    STDMETHODIMP GetSignTypeDescription(BSTR* result) override {
        return get(&Core::GetSignTypeDescription, result);
    }
    STDMETHODIMP UseNew16x16(VARIANT_BOOL* result) override { return get(&Core::UseNew16x16, result); }

    // The sign under CurrentDisplayNumber.
    QRT_PROPERTY(BSTR, DisplayName);
    QRT_PROPERTY(BSTR, DisplayType);
    QRT_PROPERTY(short, DisplayHeight);
    QRT_PROPERTY(short, DisplayWidth);
    QRT_PROPERTY(long, FrameSize);
    QRT_PROPERTY(BSTR, AppDesc);
    QRT_PROPERTY(VARIANT_BOOL, IsDisplayColor);
    QRT_PROPERTY(BSTR, DefaultColor);
    QRT_PROPERTY(BSTR, ColorsSupported);
    QRT_PROPERTY(short, ConnectionMethod);
    QRT_PROPERTY(BSTR, CommPort);
    QRT_PROPERTY(BSTR, BaudRate);
    QRT_PROPERTY(BSTR, PhoneNumber);
    QRT_PROPERTY(BSTR, IPAddress);
    QRT_PROPERTY(BSTR, DisplayIDs);
    QRT_PROPERTY(VARIANT_BOOL, SwitchOperated);
    QRT_PROPERTY(short, Switch1);
    QRT_PROPERTY(short, Switch2);
    QRT_PROPERTY(VARIANT_BOOL, DaylightSavingsTime);
    QRT_PROPERTY(short, TimeZoneAdjustment);
    QRT_PROPERTY(long, ScrollPauseDelay);
    QRT_PROPERTY(short, ScrollingTextSpeed);
    QRT_PROPERTY(VARIANT_BOOL, ResetOnGetParameters);
    QRT_PROPERTY(VARIANT_BOOL, TempProbeInstalled);
    QRT_PROPERTY(short, TempProbeAdjust);
    QRT_PROPERTY(short, BlinkRateShow);
    QRT_PROPERTY(short, BlinkRateClear);
    QRT_PROPERTY(BSTR, BlinkBehavior);
    QRT_PROPERTY(BSTR, BlinkTimes);
    QRT_PROPERTY(short, BrightnessLevel);
    QRT_PROPERTY(VARIANT_BOOL, LightSensorInstalled);
    QRT_PROPERTY(short, LightSensorMinimum);
    QRT_PROPERTY(short, LightSensorMaximum);
    QRT_PROPERTY(short, BrightnessScheduleDefaultBrightness);

    // The schedule under CurrentBrightnessScheduleNumber.
    QRT_PROPERTY(BSTR, BrightnessScheduleXStartTime);
    QRT_PROPERTY(BSTR, BrightnessScheduleXStopTime);
    QRT_PROPERTY(short, BrightnessScheduleXBrightnessLevel);

private:
    /// An omitted name stays one; any other comes back as the full name.
    HRESULT onFile(void (Core::*named)(std::string&), void (Core::*unnamed)(), VARIANT* sFileName) {
        return run([&] {
            std::optional<std::string> name = sFileName ? OptionalText(*sFileName) : std::nullopt;
            if (!name) {
                ((*core_).*unnamed)();
                return;
            }
            ((*core_).*named)(*name);
            PutText(WideText(*name), *sFileName);
        });
    }
};

} // namespace

ComPtr<IDispatch> MakeDisplayDatabaseObject() { return MakeObject<DisplayDatabaseObject>(); }

} // namespace qrtVistrelClasses4
