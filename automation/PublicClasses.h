// The classes that programs can create.
#pragma once

#include "automation/Module.h"

#include <span>

namespace qrtVistrelClasses4 {

struct PublicClass {
    const CLSID& id;
    const wchar_t* name; ///< Without the library's name.
    ComPtr<IDispatch> (*make)();
};

std::span<const PublicClass> PublicClasses();

// Defined beside the adaptor of each class.
ComPtr<IDispatch> MakeFrameInfoObject();
ComPtr<IDispatch> MakeSettingsInfoObject();
ComPtr<IDispatch> MakeDisplayDatabaseObject();
ComPtr<IDispatch> MakeMostRecentlyUsedObject();
ComPtr<IDispatch> MakeCommandInterfaceObject();

} // namespace qrtVistrelClasses4
