#include "automation/DispatchObject.h"
#include "automation/PublicClasses.h"
#include "settings/MostRecentlyUsed.h"

#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

class MostRecentlyUsedObject
    : public DispatchObject<_MostRecentlyUsed, ::MostRecentlyUsed, MostRecentlyUsed> {
public:
    STDMETHODIMP get_ClassDebugID(VARIANT* result) override { return get(&Core::ClassDebugID, result); }
    STDMETHODIMP AddFileToMostRecentlyUsedList(BSTR sFileName) override {
        return put(&Core::AddFileToMostRecentlyUsedList, sFileName);
    }
    STDMETHODIMP RemoveFileFromMostRecentlyUsed(BSTR sFileName) override {
        return put(&Core::RemoveFileFromMostRecentlyUsed, sFileName);
    }
    STDMETHODIMP PurgeMRUList() override {
        return run([&] { core_->PurgeMRUList(); });
    }
    STDMETHODIMP GetFirstFileName(BSTR* result) override { return get(&Core::GetFirstFileName, result); }
    STDMETHODIMP GetNextFile(BSTR* result) override { return get(&Core::GetNextFile, result); }
    STDMETHODIMP GetFileName(short IndexToFind, BSTR* result) override {
        return give(result, [&] { return core_->GetFileName(IndexToFind); });
    }
    STDMETHODIMP get_TotalFilesInList(short* result) override { return get(&Core::TotalFilesInList, result); }
};

} // namespace

ComPtr<IDispatch> MakeMostRecentlyUsedObject() { return MakeObject<MostRecentlyUsedObject>(); }

} // namespace qrtVistrelClasses4
