#include <qrtVistrelClasses4/LastError.h>

#include "frame/ObjectCall.h"
#include <qrtVistrelClasses4/RuntimeError.h>

namespace qrtVistrelClasses4 {

LastError::~LastError() {
    for (ObjectCall* call = traceState.call; call; call = call->outer_)
        if (call->object_ == this)
            call->object_ = nullptr;
}

void LastError::note(const RuntimeError& error) noexcept {
    number_ = error.number();
    for (ObjectCall* call = traceState.call; call; call = call->outer_)
        if (call->object_ == this)
            call->number_ = number_;
    try {
        description_ = error.description();
    } catch (...) {
        description_.clear();
    }
}

bool ObjectCall::isOutermost() const noexcept {
    for (const ObjectCall* call = outer_; call; call = call->outer_)
        if (call->object_ == object_)
            return false;
    return true;
}

} // namespace qrtVistrelClasses4
