// A program that was compiled with the header of the interfaces: a report about a site, as a C++ application
// makes one.
#include "Client.h"

#include <initguid.h>

#include <qrtVistrelClasses4.h>

namespace {

/// Releases its object at the end of a scope.
template <class Interface>
class Object {
public:
    explicit Object(REFCLSID id) : object_(static_cast<Interface*>(NewObject(id, __uuidof(Interface)))) {}
    ~Object() { object_->Release(); }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    Interface* operator->() const { return object_; }

private:
    Interface* object_;
};

void editPlayfile(const wchar_t* file) {
    const Object<_FrameInfoClass> frames(CLSID_FrameInfoClass);
    VARIANT_BOOL done = VARIANT_FALSE;
    FRAME_TYPES kind{};
    LONG error = 0;
    Text description;
    short first = 1, last = 2, inClipboard = 0;
    double seconds = 0;
    VARIANT report{};
    frames->put_CurrentFrame(1);
    frames->put_FrameType(static_cast<FRAME_TYPES>(NewFrameTypes::FRAME_TEXT));
    Check("the kind of a frame is kept",
          frames->get_FrameType(&kind) == S_OK && static_cast<int>(kind) == NewFrameTypes::FRAME_TEXT);
    _FrameInfoClass* clipboard = nullptr;
    Check("frames are copied into a new object", frames->CopyInfo(&first, &last, &clipboard) == S_OK &&
                                                     clipboard->get_TotalFrames(&inClipboard) == S_OK &&
                                                     inClipboard == 2);
    clipboard->Release();
    frames->put_DisplayWidth(16);
    frames->put_DisplayHeight(8);
    Check("a picture of a frame is saved",
          frames->SavePictureOfFrame(1, Text(file), 2, &done) == S_OK && done == VARIANT_TRUE);
    Check("one that does not exist is not",
          frames->SavePictureOfFrame(99, Text(file), 2, &done) == S_OK && done == VARIANT_FALSE);
    DeleteFileW(file);
    frames->get_LastErrorNumber(&error);
    Check("the error is known", frames->get_LastErrorDescription(&description) == S_OK && error == 9 &&
                                    description == L"Subscript out of range");
    frames->put_DelayTime(2.5);
    Check("the playfile takes time", frames->WhatsTheTotalPlayTime(&seconds) == S_OK && seconds == 2.5);
    Check("nothing is wrong", frames->ValidateThisPlayfile(nullptr, &done) == S_OK && done == VARIANT_TRUE);
    Check("but something is worth a line", frames->ValidateThisPlayfile(&report, &done) == S_OK &&
                                               V_VT(&report) == VT_BSTR && SysStringLen(V_BSTR(&report)) > 0);
    VariantClear(&report);
}

void useOtherClasses() {
    const Object<_SettingsInfoClass> settings(CLSID_SettingsInfoClass);
    const Object<_DisplayDatabaseClass> signs(CLSID_DisplayDatabaseClass);
    const Object<_MostRecentlyUsed> recent(CLSID_MostRecentlyUsed);
    const Object<_clsCommandInterface> commands(CLSID_clsCommandInterface);
    double step = 0;
    short number = 0, commandCount = 0;
    LONG errors[] = {1, 1, 1, 1};
    Text type, name;
    settings->put_DelayStep(12.5);
    Check("a preference", settings->get_DelayStep(&step) == S_OK && step == 12.5);
    signs->AddNewDisplay(Text(L"Pier"), &number);
    signs->put_CurrentDisplayNumber(number);
    signs->put_DisplayType(Text(L"16"));
    Check("a sign", signs->GetSignTypeDescription(&type) == S_OK && type == L"Kestrel");
    recent->AddFileToMostRecentlyUsedList(Text(L"early.playfile"));
    Check("a recent file", recent->GetFirstFileName(&name) == S_OK && name == L"early.playfile");
    recent->RemoveFileFromMostRecentlyUsed(Text(L"early.playfile"));
    Check("commands", commands->get_iTotalCommands(&commandCount) == S_OK && commandCount > 0);
    settings->get_LastErrorNumber(&errors[0]);
    signs->get_LastErrorNumber(&errors[1]);
    recent->get_LastErrorNumber(&errors[2]);
    commands->get_LastErrorNumber(&errors[3]);
    Check("no errors", errors[0] == 0 && errors[1] == 0 && errors[2] == 0 && errors[3] == 0);
}

} // namespace

int main() {
    CoInitialize(nullptr);
    editPlayfile(L"early.bmp");
    useOtherClasses();
    CoUninitialize();
    std::cout << "the program ran to its end\n";
}
