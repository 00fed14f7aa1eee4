// Whose error it is: the calls of objects that are running on this thread.
#pragma once

#include "frame/TraceRecords.h"
#include <qrtVistrelClasses4/LastError.h>

namespace qrtVistrelClasses4 {

/// A running call of an object, which lies on the stack of that call. Errors that are trapped meanwhile are
/// the object's errors, unless they are trapped in the call of another object.
class ObjectCall {
public:
    explicit ObjectCall(LastError& object) noexcept : object_(&object), outer_(traceState.call) {
        traceState.call = this;
    }
    /// Code of the host that is called back. It belongs to no object.
    ObjectCall() noexcept : outer_(traceState.call) { traceState.call = this; }
    ~ObjectCall() {
        traceState.call = outer_;
        if (object_)
            object_->number_ = number_;
    }
    ObjectCall(const ObjectCall&) = delete;
    ObjectCall& operator=(const ObjectCall&) = delete;

    /// False for a call that a call of the same object makes.
    bool isOutermost() const noexcept;
    /// Has the object remember `error`.
    void note(const RuntimeError& error) const noexcept {
        if (object_)
            object_->note(error);
    }

private:
    friend class LastError;

    LastError* object_ = nullptr; ///< Null also when the object has been destroyed.
    ObjectCall* outer_;
    std::int32_t number_ = 0; ///< Number of the last error within this call.
};

} // namespace qrtVistrelClasses4
