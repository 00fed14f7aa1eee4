// The last error of an object, for hosts that ask after a call whether it failed.
#pragma once

#include <qrtVistrelClasses4/Export.h>

#include <cstdint>
#include <string>

namespace QRT_PUBLIC qrtVistrelClasses4 {

class RuntimeError;

/// The error of an object's last call: one that was trapped, that a message box showed, or that was thrown.
/// Every member counts as a call, except those that ask for the error, `ClassName`, `ClassDebugID` and
/// `Value`. What a call of the object calls itself is a part of that call, and so is what a host calls while
/// an error or a question is put before the operator; if such steps fail, the last error counts. An error
/// that is only logged counts if the whole call failed with it.
class LastError {
public:
    LastError() = default;
    ~LastError();
    LastError(const LastError&) = delete;
    LastError& operator=(const LastError&) = delete;

    /// 0 if the last call had no error.
    std::int32_t number() const { return number_; }
    std::string description() const { return number_ == 0 ? std::string() : description_; }

    /// To be called when a property begins, which costs one store. While another call of the object runs, the
    /// error of that call comes back when it ends.
    void begin() { number_ = 0; }
    /// Remembers an error of the running calls. Without memory for the description, it is empty.
    void note(const RuntimeError& error) noexcept;

private:
    friend class ObjectCall;

    std::int32_t number_ = 0;
    std::string description_; ///< Of the error before, while there is none.
};

} // namespace qrtVistrelClasses4
