#include "automation/PublicClasses.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>

#include <qrtVistrelClasses4Members.h>

namespace qrtVistrelClasses4 {
namespace {

class DisplayDatabaseObject : public DisplayDatabaseClassMembers<DisplayDatabaseClass> {
public:
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
        return runInto(result, [&] { return core_->FindDisplayByName(NarrowText(theName)); });
    }
    STDMETHODIMP AddNewDisplay(BSTR DisplayName, short* result) override {
        return runInto(result, [&] { return core_->AddNewDisplay(NarrowText(DisplayName)); });
    }
    STDMETHODIMP RemoveDisplay(short displayNumber, VARIANT_BOOL* result) override {
        return runInto(result, [&] { return core_->RemoveDisplay(displayNumber); });
    }
    STDMETHODIMP Duplicate(BSTR OriginalDisplayName, BSTR NewDisplayName, VARIANT* result) override {
        const HRESULT done = runInto(result, [&] {
            return core_->Duplicate(NarrowText(OriginalDisplayName), NarrowText(NewDisplayName));
        });
        // The number of the copy has 32 bits, but the -1 for "no copy" has 16.
        if (SUCCEEDED(done) && V_I4(result) == -1) {
            V_VT(result) = VT_I2;
            V_I2(result) = -1;
        }
        return done;
    }

    // Texts for people.
    STDMETHODIMP TranslateConnectionMethodToString(short iConnectionMethod, BSTR* result) override {
        return runInto(result, [&] { return core_->TranslateConnectionMethodToString(iConnectionMethod); });
    }

private:
    /// Calls `unnamed` if the caller left the file name out. Otherwise calls `named`, and stores the full
    /// name in the caller's variable.
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
