#include "automation/InterfaceTable.h"

#include "automation/Values.h"
#include "platform/LetterCase.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

wchar_t folded(wchar_t letter) {
    return letter < 0x80 ? static_cast<wchar_t>(AsciiUpper(static_cast<char>(letter))) : letter;
}

/// The description of the interface's function table. Only there can functions be counted from 0.
ComPtr<ITypeInfo> functionTableOf(ITypeInfo& type) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> table;
    if (FAILED(type.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
        FAILED(type.GetRefTypeInfo(reference, &table)))
        table = &type;
    return table;
}

std::vector<DeclaredArgument> argumentsOf(ITypeInfo& type, const FUNCDESC& function) {
    std::vector<DeclaredArgument> arguments;
    for (SHORT index = 0; index < function.cParams; ++index) {
        const ELEMDESC& element = function.lprgelemdescParam[index];
        if (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL)
            break; // the result is the last one
        arguments.push_back(Declared(type, element.tdesc));
        if (element.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT)
            arguments.back().defaultValue = &element.paramdesc.pparamdescex->varDefaultValue;
    }
    return arguments;
}

struct KeptTable {
    IID id;
    std::shared_ptr<const InterfaceTable> table;
};

std::mutex keptAccess;
/// What the module keeps. A process that ends does not destroy it, because a thread that was stopped may hold
/// a lock of the type library's.
constinit std::vector<KeptTable>* kept = nullptr;

} // namespace

std::size_t InterfaceTable::NameHash::operator()(std::wstring_view name) const {
    std::size_t hash = 0;
    for (const wchar_t letter : name)
        hash = hash * 31 + folded(letter);
    return hash;
}

bool InterfaceTable::SameName::operator()(std::wstring_view left, std::wstring_view right) const {
    return std::ranges::equal(left, right, {}, folded, folded);
}

HRESULT InterfaceTable::load(REFIID id, std::shared_ptr<const InterfaceTable>* result) {
    const std::lock_guard lock(keptAccess);
    if (!kept)
        kept = std::make_unique<std::vector<KeptTable>>().release();
    const auto found = std::ranges::find(*kept, id, &KeptTable::id);
    if (found != kept->end()) {
        *result = found->table;
        return S_OK;
    }
    const auto table = std::make_shared<InterfaceTable>();
    const HRESULT done = table->read(id);
    if (FAILED(done))
        return done;
    kept->push_back({id, table});
    *result = table;
    return S_OK;
}

void InterfaceTable::releaseKept() {
    const std::lock_guard lock(keptAccess);
    delete std::exchange(kept, nullptr);
}

HRESULT InterfaceTable::idsOf(LPOLESTR* names, UINT count, DISPID* ids) const {
    const auto found = count == 1 && *names ? ids_.find(std::wstring_view(*names)) : ids_.end();
    if (found == ids_.end()) // the system also knows names of arguments, and other ways to write a name
        return DispGetIDsOfNames(type_.Get(), names, count, ids);
    *ids = found->second;
    return S_OK;
}

const DescribedMember* InterfaceTable::find(DISPID id, WORD flags) const {
    const auto idOf = [](const DescribedMember& member) { return member.function->memid; };
    auto member = std::ranges::lower_bound(members_, id, {}, idOf);
    while (member != members_.end() && idOf(*member) == id && !(member->function->invkind & flags))
        ++member;
    return member != members_.end() && idOf(*member) == id ? &*member : nullptr;
}

HRESULT InterfaceTable::read(REFIID id) {
    const HRESULT loaded = LoadModuleTypeInfo(id, &type_);
    if (FAILED(loaded))
        return loaded;
    functions_ = functionTableOf(*type_.Get());
    HRESULT done = S_OK;
    for (UINT index = 0; SUCCEEDED(done); ++index) {
        FUNCDESC* function = nullptr;
        done = functions_->GetFuncDesc(index, &function);
        if (SUCCEEDED(done))
            done = addMember(OwnedFunction(function, {functions_.Get()}));
    }
    std::ranges::sort(members_, {}, [](const DescribedMember& member) {
        return std::pair(member.function->memid, member.function->invkind);
    });
    return done == TYPE_E_ELEMENTNOTFOUND ? S_OK : done; // which is after the last function
}

HRESULT InterfaceTable::addMember(OwnedFunction function) {
    BSTR name = nullptr;
    UINT count = 0;
    const HRESULT done = functions_->GetNames(function->memid, &name, 1, &count);
    if (FAILED(done))
        return done;
    const OwnedBstr owned(name);
    ids_.emplace(std::wstring(name, SysStringLen(name)), function->memid);
    std::vector<DeclaredArgument> arguments = argumentsOf(*functions_.Get(), *function);
    members_.push_back({std::move(function), std::move(arguments)});
    return S_OK;
}

} // namespace qrtVistrelClasses4
