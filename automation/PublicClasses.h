// The classes that programs can create.
#pragma once

#include "automation/Module.h"

#include <span>

namespace qrtVistrelClasses4 {

struct PublicClass {
    const CLSID& id;
    const wchar_t* name; ///< Without the name of the library in front.
    ComPtr<IDispatch> (*make)();
};

std::span<const PublicClass> PublicClasses();

// Each is defined in the source file of the adaptor.
ComPtr<IDispatch> MakeFrameInfoObject();
ComPtr<IDispatch> MakeSettingsInfoObject();
ComPtr<IDispatch> MakeDisplayDatabaseObject();
ComPtr<IDispatch> MakeMostRecentlyUsedObject();
ComPtr<IDispatch> MakeCommandInterfaceObject();

} // namespace qrtVistrelClasses4
