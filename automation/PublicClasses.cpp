#include "automation/PublicClasses.h"

// Makes this source file the one that defines the identifiers which qrtVistrelClasses4.h declares.
#include <initguid.h>
#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

const PublicClass publicClasses[] = {
    {CLSID_FrameInfoClass, L"FrameInfoClass", MakeFrameInfoObject},
    {CLSID_SettingsInfoClass, L"SettingsInfoClass", MakeSettingsInfoObject},
    {CLSID_DisplayDatabaseClass, L"DisplayDatabaseClass", MakeDisplayDatabaseObject},
    {CLSID_MostRecentlyUsed, L"MostRecentlyUsed", MakeMostRecentlyUsedObject},
    {CLSID_clsCommandInterface, L"clsCommandInterface", MakeCommandInterfaceObject},
};

} // namespace

std::span<const PublicClass> PublicClasses() { return publicClasses; }

} // namespace qrtVistrelClasses4
