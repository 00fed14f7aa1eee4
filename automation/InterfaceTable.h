// What late-bound calls need to know about an interface.
#pragma once

#include "automation/LateBoundArgument.h"
#include "automation/Module.h"

#include <ole2.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qrtVistrelClasses4 {

struct ReleaseFunction {
    ITypeInfo* type;
    void operator()(FUNCDESC* function) const { type->ReleaseFuncDesc(function); }
};
using OwnedFunction = std::unique_ptr<FUNCDESC, ReleaseFunction>;

/// One way to call a member: a method, or getting or setting a property.
struct DescribedMember {
    OwnedFunction function;
    std::vector<DeclaredArgument> arguments; ///< Without the result.
};

/// The names and members of an interface that the module's type library describes. It never changes.
class InterfaceTable {
public:
    /// Sets `*result` to the table of the interface `id`. The first call reads it from the type library that
    /// the module contains, and keeps it for the next ones. Any thread may call this.
    static HRESULT load(REFIID id, std::shared_ptr<const InterfaceTable>* result);
    /// Releases the tables that the module keeps. One that is in use stays until its last user releases it.
    static void releaseKept();

    const ComPtr<ITypeInfo>& type() const { return type_; }
    /// Like `IDispatch::GetIDsOfNames`.
    HRESULT idsOf(LPOLESTR* names, UINT count, DISPID* ids) const;
    /// The member `id`, called in a way that `flags` allow. Null if the interface has none.
    const DescribedMember* find(DISPID id, WORD flags) const;

private:
    struct NameHash {
        using is_transparent = void;
        std::size_t operator()(std::wstring_view name) const;
    };
    struct SameName {
        using is_transparent = void;
        bool operator()(std::wstring_view left, std::wstring_view right) const;
    };

    HRESULT read(REFIID id);
    HRESULT addMember(OwnedFunction function);

    ComPtr<ITypeInfo> type_;
    ComPtr<ITypeInfo> functions_;          ///< The description of the interface's function table.
    std::vector<DescribedMember> members_; ///< In the order of their numbers and then of their kinds.
    std::unordered_map<std::wstring, DISPID, NameHash, SameName> ids_;
};

} // namespace qrtVistrelClasses4
