#include <qrtVistrelClasses4/LastError.h>

#include "frame/ObjectCall.h"
#include <qrtVistrelClasses4/RuntimeError.h>

namespace qrtVistrelClasses4 {

LastError::~LastError() {
    if (traceState.call)
        traceState.call->forget(*this);
}

void LastError::note(const RuntimeError& error) noexcept {
    number_ = error.number();
    try {
        description_ = error.description();
    } catch (...) {
        description_.clear();
    }
}

void LastError::clearUnlessRunning() noexcept {
    if (traceState.call && traceState.call->isWithin(*this))
        return;
    number_ = 0;
    description_.clear();
}

bool ObjectCall::isWithin(const LastError& object) const noexcept {
    for (const ObjectCall* call = this; call; call = call->outer_)
        if (call->object_ == &object)
            return true;
    return false;
}

void ObjectCall::forget(const LastError& object) noexcept {
    for (ObjectCall* call = this; call; call = call->outer_)
        if (call->object_ == &object)
            call->object_ = nullptr;
}

} // namespace qrtVistrelClasses4
