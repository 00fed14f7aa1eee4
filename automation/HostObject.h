// An object of the host, used by the names of its members.
#pragma once

#include "automation/Module.h"

#include <ole2.h>

#include <cstdint>
#include <initializer_list>
#include <string>

namespace qrtVistrelClasses4 {

/// Errors of the object, and members that it does not have, are thrown as `RuntimeError`.
class HostObject {
public:
    explicit HostObject(IDispatch* object) : object_(object) {}

    bool isNothing() const { return !object_; }
    /// The name of the object's class, else of its interface, else "Object"; "Nothing" without an object.
    std::string className() const;

    /// `arguments` are listed from last to first.
    void call(const wchar_t* method, std::initializer_list<VARIANT> arguments = {}) const {
        invoke(method, DISPATCH_METHOD, arguments, nullptr);
    }
    /// `arguments` are the new value, then the indexes from last to first.
    void put(const wchar_t* property, std::initializer_list<VARIANT> arguments) const {
        invoke(property, DISPATCH_PROPERTYPUT, arguments, nullptr);
    }
    /// The value of a property, or of a method, without arguments.
    std::int64_t readNumber(const wchar_t* name) const;

private:
    void invoke(const wchar_t* name, WORD flags, std::initializer_list<VARIANT> arguments,
                VARIANT* result) const;

    ComPtr<IDispatch> object_;
};

} // namespace qrtVistrelClasses4
