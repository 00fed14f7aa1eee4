// An object of the caller, used by the names of its members.
#pragma once

#include "automation/Module.h"

#include <ole2.h>

#include <cstdint>
#include <initializer_list>
#include <string>

namespace qrtVistrelClasses4 {

/// What the object refuses is a `RuntimeError`.
class HostObject {
public:
    explicit HostObject(IDispatch* object) : object_(object) {}

    bool isNothing() const { return !object_; }

    /// That of its class where it tells, else that of its interface.
    std::string className() const;

    /// Arguments stand from last to first.
    void invoke(const wchar_t* name, WORD flags, std::initializer_list<VARIANT> arguments, VARIANT* result) const;
    void call(const wchar_t* name, std::initializer_list<VARIANT> arguments = {}) const {
        invoke(name, DISPATCH_METHOD, arguments, nullptr);
    }
    /// What a property without arguments, or a method, gives: a number that takes `T`, VT_I4 or VT_I8.
    std::int32_t readNumber(const wchar_t* name) const;
    std::int64_t readLargeNumber(const wchar_t* name) const;

private:
    ComPtr<IDispatch> object_;
};

} // namespace qrtVistrelClasses4
