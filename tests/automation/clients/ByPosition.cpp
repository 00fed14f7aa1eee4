// A program that was compiled with the first interfaces of version 4. It has a copy of their identifiers, and
// calls members by their positions, from 0 with the seven of IDispatch. The last member of each interface is
// among them.
#include "Client.h"

#include <oaidl.h>

namespace {

constexpr GUID kFrameInfoClass{0x9AE6AD44, 0xC589, 0x4050, {0x93, 0x59, 0x78, 0xF6, 0x03, 0xD3, 0x0A, 0x08}};
constexpr GUID kFrameInfo{0x5C5E91D6, 0xC0E0, 0x4DFD, {0x8E, 0x69, 0xC7, 0xF5, 0x48, 0xFD, 0x24, 0x28}};
constexpr GUID kSettingsInfoClass{
    0xBBB8EF58, 0x3601, 0x4A20, {0xA2, 0xDC, 0x0D, 0x4A, 0x38, 0x7A, 0x04, 0xDF}};
constexpr GUID kSettingsInfo{0xB9F001E0, 0x54AE, 0x41E1, {0x91, 0x08, 0xC0, 0xB9, 0x24, 0x6D, 0x68, 0xB7}};
constexpr GUID kDisplayDatabaseClass{
    0x3F7C2D95, 0x8E41, 0x4B6A, {0xB0, 0xD7, 0x6A, 0x94, 0xE1, 0xC5, 0xF8, 0x32}};
constexpr GUID kDisplayDatabase{0xD8B1E0A4, 0x6F0C, 0x4C5B, {0x9A, 0x3E, 0x51, 0xC7, 0xF2, 0xB0, 0x8D, 0x16}};
constexpr GUID kMostRecentlyUsedClass{
    0xE80C4B19, 0x5D72, 0x4A3F, {0x8B, 0x61, 0xC7, 0xF2, 0x9D, 0x40, 0xA5, 0xE3}};
constexpr GUID kMostRecentlyUsed{
    0x64B0C8F3, 0x2A7D, 0x4E19, {0x8C, 0x55, 0x90, 0xD3, 0xEA, 0x7B, 0x1F, 0x46}};
constexpr GUID kCommandInterfaceClass{
    0x1C96F5D7, 0x08AE, 0x47B2, {0x93, 0xC4, 0xF5, 0xB3, 0xE2, 0x71, 0x6D, 0x80}};
constexpr GUID kCommandInterface{
    0xA15D7E82, 0xC34B, 0x4F06, {0xB9, 0xE8, 0x1D, 0x60, 0xF2, 0xC8, 0x7A, 0x39}};

/// An object that is known by the positions of its members.
class Object {
public:
    Object(REFCLSID id, REFIID interfaceId) : object_(static_cast<IUnknown*>(NewObject(id, interfaceId))) {}
    ~Object() { object_->Release(); }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    template <class... Arguments>
    bool call(int position, Arguments... arguments) const {
        using Member = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, Arguments...);
        void* const* const members = *reinterpret_cast<void***>(object_);
        return reinterpret_cast<Member>(members[position])(object_, arguments...) == S_OK;
    }

private:
    IUnknown* object_;
};

void usePlayfile() {
    const Object frames(kFrameInfoClass, kFrameInfo);
    short code = 0;
    LONG seconds = 0;
    Text name, customFont;
    frames.call(24, short{2});            // TotalFrames
    frames.call(9, short{1});             // CurrentFrame
    frames.call(11, short{1});            // CurrentLineNumber
    frames.call(29, BSTR{Text(L"Pier")}); // FrameName
    frames.call(31, LONG{2});             // FrameType: text
    frames.call(37, 2.0);                 // DelayTime
    frames.call(85, BSTR{Text(L"Large")});
    Check("FrameName by position", frames.call(28, &name) && name == L"Pier");
    Check("LineCustomFont by position", frames.call(84, &customFont) && customFont == L"Large");
    Check("ConvertPrefixStringToCode by position",
          frames.call(88, BSTR{Text(L"Fade In")}, &code) && code == 11006);
    Check("WhatsTheTotalOfAllDelaysForThisFile by position", frames.call(108, &seconds) && seconds == 2);
}

void useSettings() {
    const Object settings(kSettingsInfoClass, kSettingsInfo);
    double delay = 0;
    VARIANT_BOOL showsPath = VARIANT_TRUE;
    settings.call(27, 1.5);
    settings.call(85, VARIANT_BOOL{VARIANT_FALSE});
    Check("DelayMinimum by position", settings.call(26, &delay) && delay == 1.5);
    Check("ShowFullPath by position", settings.call(84, &showsPath) && showsPath == VARIANT_FALSE);
}

void useSigns() {
    const Object signs(kDisplayDatabaseClass, kDisplayDatabase);
    short number = 0, level = 0;
    Check("AddNewDisplay by position", signs.call(16, BSTR{Text(L"Pier")}, &number) && number == 1);
    signs.call(9, short{1});  // CurrentDisplayNumber
    signs.call(11, short{2}); // CurrentBrightnessScheduleNumber
    signs.call(96, short{7});
    Check("BrightnessScheduleXBrightnessLevel by position", signs.call(95, &level) && level == 7);
}

void useRecentFilesAndCommands() {
    const Object recent(kMostRecentlyUsedClass, kMostRecentlyUsed);
    const Object commands(kCommandInterfaceClass, kCommandInterface);
    short before = 0, after = 0;
    Text first;
    recent.call(14, &before);
    recent.call(8, BSTR{Text(L"position.playfile")});
    Check("GetFirstFileName by position", recent.call(11, &first) && first == L"position.playfile");
    Check("TotalFilesInList by position", recent.call(14, &after) && after > before);
    recent.call(9, BSTR{first});
    Check("SortCommandByLargestFirst by position", commands.call(13) && commands.call(8, short{1}, &first));
}

} // namespace

int main() {
    CoInitialize(nullptr);
    usePlayfile();
    useSettings();
    useSigns();
    useRecentFilesAndCommands();
    CoUninitialize();
    std::cout << "the program ran to its end\n";
}
