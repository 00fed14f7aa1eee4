// A list box of the host's screen.
#pragma once

#include <qrtVistrelClasses4/Export.h>

#include <cstdint>
#include <string>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Items are numbered from 0. If the host's control refuses a call, the call throws a `RuntimeError`.
class ListControl {
public:
    virtual ~ListControl() = default;
    /// Name of the control's class, for the call trace.
    virtual std::string ClassName() const = 0;
    virtual void Clear() = 0;
    virtual void AddItem(const std::string& text) = 0;
    /// Index of the item added last.
    virtual std::int32_t NewIndex() = 0;
    /// Keeps `data` with item `index`.
    virtual void ItemData(std::int32_t index, std::int32_t data) = 0;
    virtual std::int32_t ListCount() = 0;
    virtual void RemoveItem(std::int32_t index) = 0;
};

} // namespace qrtVistrelClasses4
