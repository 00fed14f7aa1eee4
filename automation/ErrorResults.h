// The edge of the module: errors become result codes here, and no exception goes any further.
#pragma once

#include <ole2.h>

#include <type_traits>

namespace qrtVistrelClasses4 {

/// Only for `catch` blocks. Returns the result code of the current error, 0x800A0000 + its number, and sets
/// the thread's rich error information, with `iid` as the interface whose member failed. Without memory it
/// returns E_OUTOFMEMORY and sets nothing.
HRESULT ResultOfCurrentError(REFIID iid) noexcept;

/// Runs `body` for a caller of interface `iid`. Returns the body's result code, or S_OK if it has none. If it
/// throws, returns the result code of its error.
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
