// Whose error it is: the calls of objects that are running on this thread.
#pragma once

#include "frame/TraceRecords.h"
#include <qrtVistrelClasses4/LastError.h>

namespace qrtVistrelClasses4 {

/// A running call of an object, which lies on the stack of that call. Errors that are trapped meanwhile are
/// the object's errors, unless they are trapped in the call of another object.
class ObjectCall {
public:
    explicit ObjectCall(LastError& object) noexcept
        : object_(&object), outer_(traceState.call), isOutermost_(!outer_ || !outer_->isWithin(object)) {
        if (isOutermost_)
            object.begin();
        traceState.call = this;
    }
    /// Code of the host that is called back. It belongs to no object.
    ObjectCall() noexcept : outer_(traceState.call) { traceState.call = this; }
    ~ObjectCall() { traceState.call = outer_; }
    ObjectCall(const ObjectCall&) = delete;
    ObjectCall& operator=(const ObjectCall&) = delete;

    /// False for a call that a call of the same object makes.
    bool isOutermost() const { return isOutermost_; }
    /// Whether this call or one around it is a call of `object`.
    bool isWithin(const LastError& object) const noexcept;
    /// Has the object remember `error`.
    void note(const RuntimeError& error) const noexcept {
        if (object_)
            object_->note(error);
    }
    /// Takes a destroyed object out of this call and of those around it.
    void forget(const LastError& object) noexcept;

private:
    LastError* object_ = nullptr;
    ObjectCall* outer_;
    bool isOutermost_ = false;
};

} // namespace qrtVistrelClasses4
