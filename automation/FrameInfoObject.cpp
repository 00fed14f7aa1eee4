#include "automation/DispatchObject.h"
#include "automation/HostListControl.h"
#include "automation/PublicClasses.h"
#include "playfile/FrameInfoClass.h"

#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

class FrameInfoObject : public DispatchObject<_FrameInfoClass, ::FrameInfoClass, FrameInfoClass> {
public:
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
        return run([&] { core_.MakeLineVarsValid(); });
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
        return give(result, [&] { return core_.ConvertPrefixCodeToString(code); });
    }
    STDMETHODIMP ConvertSuffixCodeToString(short code, BSTR* result) override {
        return give(result, [&] { return core_.ConvertSuffixCodeToString(code); });
    }
    STDMETHODIMP ConvertPrefixStringToCode(BSTR CodeString, short* result) override {
        return give(result, [&] { return core_.ConvertPrefixStringToCode(NarrowText(CodeString)); });
    }
    STDMETHODIMP ConvertSuffixStringToCode(BSTR CodeString, short* result) override {
        return give(result, [&] { return core_.ConvertSuffixStringToCode(NarrowText(CodeString)); });
    }
    STDMETHODIMP FillEffectList(IDispatch* prefixList, IDispatch* suffixList) override {
        return run([&] { core_.FillEffectList(HostList(prefixList), HostList(suffixList)); });
    }
    STDMETHODIMP LoadNewEffectLists(IDispatch* prefixList1, IDispatch* suffixList1, IDispatch* prefixList2,
                                    IDispatch* suffixList2, VARIANT_BOOL* result) override {
        return give(result, [&] {
            return core_.LoadNewEffectLists(HostList(prefixList1), HostList(suffixList1),
                                            HostList(prefixList2), HostList(suffixList2));
        });
    }
    STDMETHODIMP RefreshEffectLists(IDispatch* prefixList, IDispatch* suffixList) override {
        return run([&] { core_.RefreshEffectLists(HostList(prefixList), HostList(suffixList)); });
    }

    // The file.
    STDMETHODIMP GetPlayfileFromDisk(BSTR sFileName, VARIANT_BOOL* result) override {
        return give(result, [&] { return core_.GetPlayfileFromDisk(NarrowText(sFileName)); });
    }
    STDMETHODIMP WritePlayfileToDisk(BSTR sFileName, VARIANT_BOOL* result) override {
        return give(result, [&] { return core_.WritePlayfileToDisk(NarrowText(sFileName)); });
    }
};

} // namespace

ComPtr<IDispatch> MakeFrameInfoObject() { return MakeObject<FrameInfoObject>(); }

} // namespace qrtVistrelClasses4
