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
    /// That of its class where it tells, else of its interface.
    std::string className() const;

    /// Arguments stand from last to first.
    void call(const wchar_t* method, std::initializer_list<VARIANT> arguments = {}) const {
        invoke(method, DISPATCH_METHOD, arguments, nullptr);
    }
    /// The new value stands first.
    void put(const wchar_t* property, std::initializer_list<VARIANT> arguments) const {
        invoke(property, DISPATCH_PROPERTYPUT, arguments, nullptr);
    }
    /// What a property or a method gives that takes no arguments.
    std::int64_t readNumber(const wchar_t* name) const;

private:
    void invoke(const wchar_t* name, WORD flags, std::initializer_list<VARIANT> arguments,
                VARIANT* result) const;

    ComPtr<IDispatch> object_;
};

} // namespace qrtVistrelClasses4
