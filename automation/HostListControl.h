// A list box of the host, used by the names of its members.
#pragma once

#include "automation/HostObject.h"
#include <qrtVistrelClasses4/ListControl.h>

namespace qrtVistrelClasses4 {

/// Throws the list box's errors as `RuntimeError`.
class HostListControl : public ListControl {
public:
    explicit HostListControl(IDispatch* control) : list_(control) {}

    bool isNothing() const { return list_.isNothing(); }

    std::string ClassName() const override { return list_.className(); }
    void Clear() override;
    void AddItem(const std::string& text) override;
    std::int32_t NewIndex() override;
    void ItemData(std::int32_t index, std::int32_t data) override;
    std::int32_t ListCount() override;
    void RemoveItem(std::int32_t index) override;

private:
    std::int32_t readNumber(const wchar_t* name);

    HostObject list_;
};

/// A list box passed as an argument. Converts to null if the caller passed Nothing.
class HostList {
public:
    explicit HostList(IDispatch* control) : control_(control) {}
    operator ListControl*() { return control_.isNothing() ? nullptr : &control_; }

private:
    HostListControl control_;
};

} // namespace qrtVistrelClasses4
