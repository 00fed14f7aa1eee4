#include "automation/PublicClasses.h"
#include <qrtVistrelClasses4/SettingsInfoClass.h>

#include <qrtVistrelClasses4Members.h>

namespace qrtVistrelClasses4 {
namespace {

class SettingsInfoObject : public SettingsInfoClassMembers<SettingsInfoClass> {
public:
    // Identity and the file.
    STDMETHODIMP GetPrivateSetting(BSTR Key, BSTR DefaultValue, BSTR* result) override {
        return runInto(result,
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
};

} // namespace

ComPtr<IDispatch> MakeSettingsInfoObject() { return MakeObject<SettingsInfoObject>(); }

} // namespace qrtVistrelClasses4
