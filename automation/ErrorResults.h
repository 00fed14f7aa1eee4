// Errors on their way to the caller of an automation object. No exception gets past here.
#pragma once

#include <ole2.h>

#include <type_traits>

namespace qrtVistrelClasses4 {

/// For a `catch` block: the result code of the error, 0x800A0000 + number, after giving the thread the rich
/// error information of interface `iid`.
HRESULT ResultOfCurrentError(REFIID iid) noexcept;

/// Runs `body` for a caller of interface `iid`. A body without a result of its own succeeds unless it throws.
template <class Body>
HRESULT ResultOf(REFIID iid, Body body) noexcept {
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<Body&>>) {
            body();
            return S_OK;
        } else {
            return body();
        }
    } catch (...) {
        return ResultOfCurrentError(iid);
    }
}

} // namespace qrtVistrelClasses4
