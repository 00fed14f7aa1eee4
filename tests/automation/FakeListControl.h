// A list box of a host, as far as the library uses one.
#pragma once

#include "automation/ComObject.h"

#include "AutomationTesting.h"

#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

class FakeListControl : public ComObject<IDispatch> {
public:
    using Items = std::vector<std::pair<std::string, int>>;

    /// Texts with their data.
    Items items;
    /// What members answer instead of working.
    HRESULT refusal = S_OK;
    /// What it tells of itself, if anything.
    EXCEPINFO exception{};

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        for (DISPID id = 0; id < static_cast<DISPID>(std::size(kMembers)); ++id)
            if (kMembers[id] == std::wstring_view(*names)) {
                *ids = id;
                return S_OK;
            }
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* told, UINT*) override {
        if (FAILED(refusal)) {
            *told = std::exchange(exception, EXCEPINFO{});
            return refusal;
        }
        return work(member, flags, *arguments, result);
    }

private:
    enum Member : DISPID { clear, addItem, newIndex, itemData, listCount, removeItem };
    static constexpr const wchar_t* kMembers[] = {L"Clear",    L"AddItem",   L"NewIndex",
                                                  L"ItemData", L"ListCount", L"RemoveItem"};

    HRESULT work(DISPID member, WORD flags, const DISPPARAMS& arguments, VARIANT* result) {
        const bool reads = (flags & DISPATCH_PROPERTYGET) && arguments.cArgs == 0 && result;
        const bool calls = (flags & DISPATCH_METHOD) && arguments.cNamedArgs == 0;
        const VARIANT* given = arguments.rgvarg;
        if (member == clear && calls && arguments.cArgs == 0)
            items.clear();
        else if (member == addItem && calls && arguments.cArgs == 1 && V_VT(given) == VT_BSTR)
            items.emplace_back(NarrowText(V_BSTR(given)), 0);
        else if (member == newIndex && reads)
            answer(*result, items.size() - 1);
        else if (member == listCount && reads)
            answer(*result, items.size());
        else if (member == removeItem && calls && arguments.cArgs == 1 && V_VT(given) == VT_I4)
            items.erase(items.begin() + V_I4(given));
        else if (member == itemData && flags == DISPATCH_PROPERTYPUT && arguments.cArgs == 2 &&
                 arguments.cNamedArgs == 1 && arguments.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT)
            items.at(static_cast<std::size_t>(V_I4(&given[1]))).second = V_I4(&given[0]);
        else
            return DISP_E_MEMBERNOTFOUND;
        return S_OK;
    }

    /// Numbers of list boxes have 16 bits.
    static void answer(VARIANT& result, std::size_t number) {
        V_VT(&result) = VT_I2;
        V_I2(&result) = static_cast<SHORT>(number);
    }
};

} // namespace qrtVistrelClasses4
