#include "automation/PublicClasses.h"
#include <qrtVistrelClasses4/MostRecentlyUsed.h>

#include <qrtVistrelClasses4Members.h>

namespace qrtVistrelClasses4 {
namespace {

class MostRecentlyUsedObject : public MostRecentlyUsedMembers<MostRecentlyUsed> {
public:
    STDMETHODIMP AddFileToMostRecentlyUsedList(BSTR sFileName) override {
        return put(&Core::AddFileToMostRecentlyUsedList, sFileName);
    }
    STDMETHODIMP RemoveFileFromMostRecentlyUsed(BSTR sFileName) override {
        return put(&Core::RemoveFileFromMostRecentlyUsed, sFileName);
    }
    STDMETHODIMP GetFileName(short IndexToFind, BSTR* result) override {
        return runInto(result, [&] { return core_->GetFileName(IndexToFind); });
    }
};

} // namespace

ComPtr<IDispatch> MakeMostRecentlyUsedObject() { return MakeObject<MostRecentlyUsedObject>(); }

} // namespace qrtVistrelClasses4
