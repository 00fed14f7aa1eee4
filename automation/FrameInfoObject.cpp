#include "automation/HostListControl.h"
#include "automation/PublicClasses.h"
#include "preview/PictureMember.h"
#include "validation/ValidationMember.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <qrtVistrelClasses4Members.h>

namespace qrtVistrelClasses4 {
namespace {

/// An interface that only objects of this module have. Its identifier is made anew in each process, so that
/// no other object can offer it.
const IID& ownObjectId() {
    static const IID id = [] {
        IID drawn{};
        CoCreateGuid(&drawn);
        return drawn;
    }();
    return id;
}

class FrameInfoObject : public FrameInfoClassMembers<FrameInfoClass> {
public:
    using FrameInfoClassMembers::FrameInfoClassMembers;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        if (!result || iid != ownObjectId())
            return DispatchObject::QueryInterface(iid, result);
        *result = this;
        AddRef();
        return S_OK;
    }

    // The playfile.
    STDMETHODIMP SetSuppressMessages(VARIANT_BOOL bNewValue) override {
        return put(&Core::SetSuppressMessages, bNewValue);
    }
    STDMETHODIMP InitFrame(short LineToInit) override { return put(&Core::InitFrame, LineToInit); }

    // Effects.
    STDMETHODIMP ConvertPrefixCodeToString(short code, BSTR* result) override {
        return runInto(result, [&] { return core_->ConvertPrefixCodeToString(code); });
    }
    STDMETHODIMP ConvertSuffixCodeToString(short code, BSTR* result) override {
        return runInto(result, [&] { return core_->ConvertSuffixCodeToString(code); });
    }
    STDMETHODIMP ConvertPrefixStringToCode(BSTR CodeString, short* result) override {
        return runInto(result, [&] { return core_->ConvertPrefixStringToCode(NarrowText(CodeString)); });
    }
    STDMETHODIMP ConvertSuffixStringToCode(BSTR CodeString, short* result) override {
        return runInto(result, [&] { return core_->ConvertSuffixStringToCode(NarrowText(CodeString)); });
    }
    STDMETHODIMP FillEffectList(IDispatch* prefixList, IDispatch* suffixList) override {
        return run([&] { core_->FillEffectList(HostList(prefixList), HostList(suffixList)); });
    }
    STDMETHODIMP LoadNewEffectLists(IDispatch* prefixList1, IDispatch* suffixList1, IDispatch* prefixList2,
                                    IDispatch* suffixList2, VARIANT_BOOL* result) override {
        return runInto(result, [&] {
            return core_->LoadNewEffectLists(HostList(prefixList1), HostList(suffixList1),
                                             HostList(prefixList2), HostList(suffixList2));
        });
    }
    STDMETHODIMP RefreshEffectLists(IDispatch* prefixList, IDispatch* suffixList) override {
        return run([&] { core_->RefreshEffectLists(HostList(prefixList), HostList(suffixList)); });
    }

    // The file.
    STDMETHODIMP GetPlayfileFromDisk(BSTR sFileName, VARIANT_BOOL* result) override {
        return runInto(result, [&] { return core_->GetPlayfileFromDisk(NarrowText(sFileName)); });
    }
    STDMETHODIMP WritePlayfileToDisk(BSTR sFileName, VARIANT_BOOL* result) override {
        return runInto(result, [&] { return core_->WritePlayfileToDisk(NarrowText(sFileName)); });
    }
    STDMETHODIMP WriteXMLToDisk(BSTR sFileName, VARIANT_BOOL* result) override {
        return runInto(result, [&] { return core_->WriteXMLToDisk(NarrowText(sFileName)); });
    }
    STDMETHODIMP SavePictureOfFrame(short iFrameNum, BSTR sFileName, short iScale,
                                    VARIANT_BOOL* result) override {
        return runInto(result,
                       [&] { return SavePictureAsMember(*core_, iFrameNum, NarrowText(sFileName), iScale); });
    }
    STDMETHODIMP ValidateThisPlayfile(VARIANT* sReport, VARIANT_BOOL* result) override {
        return runInto(result, [&] {
            std::string report;
            const bool isValid = ValidateAsMember(*core_, report);
            if (sReport)
                PutText(WideText(report), *sReport);
            return isValid;
        });
    }

    // Editing.
    STDMETHODIMP InsertFrame(VARIANT_BOOL* bLast) override {
        return run([&] {
            bool isLast = bLast && FromAutomation<bool>(*bLast);
            core_->InsertFrame(isLast);
            if (bLast)
                ToAutomation(isLast, bLast);
        });
    }
    STDMETHODIMP MoveFrame(short* From, short* WhereTo) override {
        if (!From || !WhereTo)
            return E_POINTER;
        return run([&] { core_->MoveFrame(*From, *WhereTo); });
    }
    STDMETHODIMP CopyInfo(short* CopyFromY, short* CopyToY, _FrameInfoClass** MyClipboard) override {
        return replaceClipboard(&Core::CopyInfo, CopyFromY, CopyToY, MyClipboard);
    }
    STDMETHODIMP CutInfo(short* CutFromY, short* CutToY, _FrameInfoClass** MyClipboard) override {
        return replaceClipboard(&Core::CutInfo, CutFromY, CutToY, MyClipboard);
    }
    STDMETHODIMP PasteInfo(short PasteTo, _FrameInfoClass* MyClipboardInfo) override {
        return run([&] { core_->PasteInfo(PasteTo, coreOf(MyClipboardInfo).get()); });
    }
    STDMETHODIMP IsThereAPreviousClone(short iFrameNum, VARIANT_BOOL* result) override {
        return runInto(result, [&] { return core_->IsThereAPreviousClone(iFrameNum); });
    }

private:
    /// The playfile of an object of this module; null for a null `object`. Throws error 13 for any other
    /// object.
    static std::shared_ptr<Core> coreOf(_FrameInfoClass* object) {
        if (!object)
            return nullptr;
        void* own = nullptr;
        if (FAILED(object->QueryInterface(ownObjectId(), &own)))
            throw RuntimeError(ErrorNumber::typeMismatch);
        auto* const holder = static_cast<FrameInfoObject*>(own);
        std::shared_ptr<Core> core = holder->core_;
        holder->Release();
        return core;
    }

    /// Only clipboards are set to new objects.
    void fill(IDispatch& given, IDispatch& made) override {
        coreOf(static_cast<_FrameInfoClass*>(&given))
            ->TakeOver(*coreOf(static_cast<_FrameInfoClass*>(&made)));
    }

    using ClipboardOperation = void (Core::*)(std::int16_t&, std::int16_t&, std::shared_ptr<Core>&);
    /// Copies or cuts frames and replaces the caller's clipboard object by a new one. The new object is made
    /// first: without memory for it, no frames are cut.
    // NOLINTNEXTLINE(readability-non-const-parameter): the operation changes `*first` and `*last`
    HRESULT replaceClipboard(ClipboardOperation operation, short* first, short* last,
                             _FrameInfoClass** clipboard) {
        if (!first || !last || !clipboard)
            return E_POINTER;
        return run([&] {
            const ComPtr<FrameInfoObject> replacement = MakeObject<FrameInfoObject>(coreOf(*clipboard));
            const std::shared_ptr<Core> core = core_; // `Release` below may delete this object
            if (*clipboard)
                std::exchange(*clipboard, nullptr)->Release();
            ((*core).*operation)(*first, *last, replacement->core_);
            if (replacement->core_)
                *clipboard = ComPtr<FrameInfoObject>(replacement).Detach();
        });
    }
};

} // namespace

ComPtr<IDispatch> MakeFrameInfoObject() { return MakeObject<FrameInfoObject>(); }

} // namespace qrtVistrelClasses4
