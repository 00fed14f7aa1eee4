#include "automation/DispatchObject.h"
#include "automation/PublicClasses.h"
#include "settings/SettingsInfoClass.h"

#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

class SettingsInfoObject : public DispatchObject<_SettingsInfoClass, ::SettingsInfoClass, SettingsInfoClass> {
public:
    // Identity and the file.
    STDMETHODIMP get_ClassDebugID(VARIANT* result) override { return get(&Core::ClassDebugID, result); }
    STDMETHODIMP GetPrivateSetting(BSTR Key, BSTR DefaultValue, BSTR* result) override {
        return give(result,
                    [&] { return core_->GetPrivateSetting(NarrowText(Key), NarrowText(DefaultValue)); });
    }
    STDMETHODIMP WriteSetting(BSTR Key, BSTR Value) override {
        return run([&] { core_->WriteSetting(NarrowText(Key), NarrowText(Value)); });
    }
    STDMETHODIMP GetSettingsFromDisk(VARIANT sFileName) override {
        return put(&Core::GetSettingsFromDisk, sFileName);
    }
    STDMETHODIMP SaveSettingsToDisk(VARIANT sFileName) override {
        return put(&Core::SaveSettingsToDisk, sFileName);
    }

    // The schedule under ScheduleNumber.
    QRT_PROPERTY(short, ScheduleNumber);
    QRT_PROPERTY(BSTR, BrightnessScheduleStartTime);
    QRT_PROPERTY(BSTR, BrightnessScheduleStopTime);
    QRT_PROPERTY(short, BrightnessScheduleBrightnessLevel);

    // Preferences.
    QRT_PROPERTY(BSTR, LastGraphicFilePath);
    QRT_PROPERTY(short, DisplayHeight);
    QRT_PROPERTY(short, DisplayWidth);
    QRT_PROPERTY(double, DelayMinimum);
    QRT_PROPERTY(double, DelayMaximum);
    QRT_PROPERTY(double, DelayStep);
    QRT_PROPERTY(VARIANT_BOOL, WizardMode);
    QRT_PROPERTY(VARIANT_BOOL, SwitchOperated);
    QRT_PROPERTY(BSTR, DisplayID);
    QRT_PROPERTY(short, ScrollPauseDelay);
    QRT_PROPERTY(short, TemperatureProbeAdjust);
    QRT_PROPERTY(short, TimeZoneAdjust);
    QRT_PROPERTY(VARIANT_BOOL, ResetOnGetParameters);
    QRT_PROPERTY(short, ScrollingTextSpeed);
    QRT_PROPERTY(VARIANT_BOOL, UseDaylightSavingsTime);
    QRT_PROPERTY(short, DisplayBrightnessLevel);
    QRT_PROPERTY(short, SensorLimitMinimum);
    QRT_PROPERTY(short, SensorLimitMaximum);
    QRT_PROPERTY(short, ScheduleDefaultBrightness);
    QRT_PROPERTY(VARIANT_BOOL, DoesDisplaySupportColor);
    QRT_PROPERTY(BSTR, LastPlayfilePath);
    QRT_PROPERTY(VARIANT_BOOL, SupportOldFirmware);
    QRT_PROPERTY(VARIANT_BOOL, PlayAutoEnable);
    QRT_PROPERTY(VARIANT_BOOL, ChooseDispGetInfo);
    QRT_PROPERTY(VARIANT_BOOL, ChooseDispTransmit);
    QRT_PROPERTY(VARIANT_BOOL, AVIFixedDelay);
    QRT_PROPERTY(short, AVIDelay);
    QRT_PROPERTY(short, DefaultDelay);
    QRT_PROPERTY(short, BroadcastTRDelay);
    QRT_PROPERTY(VARIANT_BOOL, ShowImages);
    QRT_PROPERTY(VARIANT_BOOL, AVICrop);
    QRT_PROPERTY(VARIANT_BOOL, BMPCrop);
    QRT_PROPERTY(VARIANT_BOOL, ShowFullPath);
};

} // namespace

ComPtr<IDispatch> MakeSettingsInfoObject() { return MakeObject<SettingsInfoObject>(); }

} // namespace qrtVistrelClasses4
