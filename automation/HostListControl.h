// A list box of the caller's screen, used by the names of its members.
#pragma once

#include "automation/Module.h"
#include "playfile/ListControl.h"

#include <ole2.h>

#include <initializer_list>

namespace qrtVistrelClasses4 {

class HostListControl : public ListControl {
public:
    explicit HostListControl(IDispatch* control) : control_(control) {}

    bool isNothing() const { return !control_; }

    std::string ClassName() const override;
    void Clear() override;
    void AddItem(const std::string& text) override;
    std::int32_t NewIndex() override;
    void ItemData(std::int32_t index, std::int32_t data) override;
    std::int32_t ListCount() override;
    void RemoveItem(std::int32_t index) override;

private:
    /// Arguments stand from last to first.
    void invoke(const wchar_t* name, WORD flags, std::initializer_list<VARIANT> arguments, VARIANT* result);
    std::int32_t readNumber(const wchar_t* name);

    ComPtr<IDispatch> control_;
};

/// The list control that an argument gives; none for no object.
class HostList {
public:
    explicit HostList(IDispatch* control) : control_(control) {}
    operator ListControl*() { return control_.isNothing() ? nullptr : &control_; }

private:
    HostListControl control_;
};

} // namespace qrtVistrelClasses4
