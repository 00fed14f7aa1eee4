// Errors of the operating system as run-time errors.
#pragma once

#include "platform/SystemError.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <optional>
#include <utility>

namespace qrtVistrelClasses4 {

/// The run-time error for an error of the operating system. `error` must not be `none`.
RuntimeError ErrorFor(SystemError error);

/// Throws if `error` is not `none`.
void Check(SystemError error);
/// Throws the error of an outcome, if there is one.
void Check(const std::optional<RuntimeError>& error);

/// The value of `result`. Throws its error if there is none.
template <class T>
T ValueOf(Result<T> result) {
    Check(result.error());
    return std::move(result).value();
}

} // namespace qrtVistrelClasses4
