#include "automation/DispatchObject.h"
#include "automation/HostListControl.h"
#include "automation/PublicClasses.h"
#include "playfile/FrameInfoClass.h"

#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

/// Asks an object whether it is one of this module's. Drawn anew by each, so that no other answers to it.
const IID& ownObject() {
    static const IID id = [] {
        IID drawn{};
        CoCreateGuid(&drawn);
        return drawn;
    }();
    return id;
}

class FrameInfoObject : public DispatchObject<_FrameInfoClass, ::FrameInfoClass, FrameInfoClass> {
public:
    using DispatchObject::DispatchObject;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        if (!result || iid != ownObject())
            return DispatchObject::QueryInterface(iid, result);
        *result = this;
        AddRef();
        return S_OK;
    }

    // The playfile.
    STDMETHODIMP get_ClassDebugID(VARIANT* result) override { return get(&Core::ClassDebugID, result); }
    QRT_PROPERTY(short, CurrentFrame);
    QRT_PROPERTY(short, CurrentLineNumber);
    QRT_PROPERTY(short, DisplayWidth);
    QRT_PROPERTY(short, DisplayHeight);
    QRT_PROPERTY(BSTR, CurrentFileName);
    QRT_PROPERTY(short, TotalFramesAllowed);
    QRT_PROPERTY(VARIANT_BOOL, PlayFileHasChanged);
    QRT_PROPERTY(short, TotalFrames);
    STDMETHODIMP get_IsLegacy(VARIANT_BOOL* result) override { return get(&Core::IsLegacy, result); }
    STDMETHODIMP SetSuppressMessages(VARIANT_BOOL bNewValue) override {
        return put(&Core::SetSuppressMessages, bNewValue);
    }
    STDMETHODIMP MakeLineVarsValid() override {
        return run([&] { core_->MakeLineVarsValid(); });
    }
    STDMETHODIMP InitFrame(short LineToInit) override { return put(&Core::InitFrame, LineToInit); }

    // The frame under CurrentFrame.
    QRT_PROPERTY(BSTR, FrameName);
    QRT_PROPERTY(::FRAME_TYPES, FrameType);
    QRT_PROPERTY(short, PrefixCode);
    QRT_PROPERTY(short, SuffixCode);
    QRT_PROPERTY(double, DelayTime);
    QRT_PROPERTY(BSTR, PicturefileName);
    QRT_PROPERTY(BSTR, commandfile);
    QRT_PROPERTY(short, PictureFileType);
    QRT_PROPERTY(short, PictureFileDisplay);
    QRT_PROPERTY(short, FontWidth);
    QRT_PROPERTY(short, FontHeight);
    QRT_PROPERTY(short, TotalDisplayFramesUsedForThisFrame);
    QRT_PROPERTY(short, RowHeightForGrid);
    STDMETHODIMP get_SendCommandFileAsIs(short* result) override {
        return get(&Core::SendCommandFileAsIs, result);
    }
    STDMETHODIMP put_SendCommandFileAsIs(VARIANT_BOOL vData) override {
        return put(&Core::SendCommandFileAsIs, vData);
    }
    QRT_PROPERTY(VARIANT_BOOL, OverlayFrame);
    QRT_PROPERTY(short, AVIFrames);
    QRT_PROPERTY(VARIANT_BOOL, FastScroll);
    QRT_PROPERTY(BSTR, AudioFile);
    QRT_PROPERTY(long, WinBackColor);
    STDMETHODIMP get_FixedNumberOfLines(short* result) override {
        return get(&Core::FixedNumberOfLines, result);
    }
    STDMETHODIMP put_FixedNumberOfLines(long vData) override { return put(&Core::FixedNumberOfLines, vData); }
    QRT_PROPERTY(short, TotalLinesAllowed);

    // The line under CurrentLineNumber.
    QRT_PROPERTY(BSTR, CurrentLineText);
    QRT_PROPERTY(VARIANT_BOOL, Scrolling);
    QRT_PROPERTY(VARIANT_BOOL, Blinking);
    QRT_PROPERTY(VARIANT_BOOL, Inverse);
    QRT_PROPERTY(VARIANT_BOOL, Merge);
    QRT_PROPERTY(short, LineFontSize);
    QRT_PROPERTY(short, CurrentLineFont);
    QRT_PROPERTY(BSTR, LineCustomFont);

    // Effects.
    STDMETHODIMP ConvertPrefixCodeToString(short code, BSTR* result) override {
        return give(result, [&] { return core_->ConvertPrefixCodeToString(code); });
    }
    STDMETHODIMP ConvertSuffixCodeToString(short code, BSTR* result) override {
        return give(result, [&] { return core_->ConvertSuffixCodeToString(code); });
    }
    STDMETHODIMP ConvertPrefixStringToCode(BSTR CodeString, short* result) override {
        return give(result, [&] { return core_->ConvertPrefixStringToCode(NarrowText(CodeString)); });
    }
    STDMETHODIMP ConvertSuffixStringToCode(BSTR CodeString, short* result) override {
        return give(result, [&] { return core_->ConvertSuffixStringToCode(NarrowText(CodeString)); });
    }
    STDMETHODIMP FillEffectList(IDispatch* prefixList, IDispatch* suffixList) override {
        return run([&] { core_->FillEffectList(HostList(prefixList), HostList(suffixList)); });
    }
    STDMETHODIMP LoadNewEffectLists(IDispatch* prefixList1, IDispatch* suffixList1, IDispatch* prefixList2,
                                    IDispatch* suffixList2, VARIANT_BOOL* result) override {
        return give(result, [&] {
            return core_->LoadNewEffectLists(HostList(prefixList1), HostList(suffixList1),
                                             HostList(prefixList2), HostList(suffixList2));
        });
    }
    STDMETHODIMP RefreshEffectLists(IDispatch* prefixList, IDispatch* suffixList) override {
        return run([&] { core_->RefreshEffectLists(HostList(prefixList), HostList(suffixList)); });
    }

    // The file.
    STDMETHODIMP GetPlayfileFromDisk(BSTR sFileName, VARIANT_BOOL* result) override {
        return give(result, [&] { return core_->GetPlayfileFromDisk(NarrowText(sFileName)); });
    }
    STDMETHODIMP WritePlayfileToDisk(BSTR sFileName, VARIANT_BOOL* result) override {
        return give(result, [&] { return core_->WritePlayfileToDisk(NarrowText(sFileName)); });
    }
    STDMETHODIMP WriteXMLToDisk(BSTR sFileName, VARIANT_BOOL* result) override {
        return give(result, [&] { return core_->WriteXMLToDisk(NarrowText(sFileName)); });
    }

    // Frames in other places.
    STDMETHODIMP InsertFrame(VARIANT_BOOL* bLast) override {
        return run([&] {
            bool isLast = bLast && FromAutomation<bool>(*bLast);
            core_->InsertFrame(isLast);
            if (bLast)
                ToAutomation(isLast, bLast);
        });
    }
    STDMETHODIMP DeleteCurrentFrame() override {
        return run([&] { core_->DeleteCurrentFrame(); });
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
        return give(result, [&] { return core_->IsThereAPreviousClone(iFrameNum); });
    }

    // Counts.
    STDMETHODIMP HowManyUsedFramesAreThere(short* result) override {
        return get(&Core::HowManyUsedFramesAreThere, result);
    }
    STDMETHODIMP HowManyGraphicsAreThere(short* result) override {
        return get(&Core::HowManyGraphicsAreThere, result);
    }
    STDMETHODIMP HowManyTextFramesAreThere(short* result) override {
        return get(&Core::HowManyTextFramesAreThere, result);
    }
    STDMETHODIMP HowManyGraphicTextFramesAreThere(short* result) override {
        return get(&Core::HowManyGraphicTextFramesAreThere, result);
    }
    STDMETHODIMP HowManyCommandFileFramesAreThere(short* result) override {
        return get(&Core::HowManyCommandFileFramesAreThere, result);
    }
    STDMETHODIMP WhatsTheTotalOfAllDelaysForThisFile(long* result) override {
        return get(&Core::WhatsTheTotalOfAllDelaysForThisFile, result);
    }

private:
    /// The playfile of an object made here, none for a null one. Any other object is error 13.
    static std::shared_ptr<Core> coreOf(_FrameInfoClass* object) {
        if (!object)
            return nullptr;
        void* own = nullptr;
        if (FAILED(object->QueryInterface(ownObject(), &own)))
            throw RuntimeError(ErrorNumber::typeMismatch);
        auto* const holder = static_cast<FrameInfoObject*>(own);
        std::shared_ptr<Core> core = holder->core_;
        holder->Release();
        return core;
    }

    using ClipboardOperation = void (Core::*)(std::int16_t&, std::int16_t&, std::shared_ptr<Core>&);
    /// The object for the new clipboard is made first, so that frames which have been cut cannot be lost.
    HRESULT replaceClipboard(ClipboardOperation operation, short* first, short* last,
                             _FrameInfoClass** clipboard) {
        if (!first || !last || !clipboard)
            return E_POINTER;
        return run([&] {
            const ComPtr<FrameInfoObject> replacement = MakeObject<FrameInfoObject>(coreOf(*clipboard));
            const std::shared_ptr<Core> core = core_; // lives on when this object is released here
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
