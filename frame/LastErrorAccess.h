// The last error of an object, for what is declared outside its class and counts as its calls.
#pragma once

namespace qrtVistrelClasses4 {

class LastError;

/// A friend of the classes whose objects have a last error.
struct LastErrorAccess {
    template <class Object>
    static LastError& of(const Object& object) {
        return object.lastError_;
    }
};

} // namespace qrtVistrelClasses4
