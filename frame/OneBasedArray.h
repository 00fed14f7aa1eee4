// Lists as the application numbers them.
#pragma once

#include "frame/RuntimeError.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// An array of elements 1 to `upperBound()`; the only place that knows that memory counts from 0.
/// An empty array has the upper bound 0.
template <class T>
class OneBasedArray {
public:
    OneBasedArray() = default;
    explicit OneBasedArray(std::int32_t upperBound) { resize(upperBound); }

    std::int32_t upperBound() const { return static_cast<std::int32_t>(elements_.size()); }
    bool empty() const { return elements_.empty(); }
    bool contains(std::int32_t number) const { return number >= 1 && number <= upperBound(); }

    /// Error 9 when `number` is outside the array.
    T& at(std::int32_t number) {
        requireElement(number);
        return elements_[static_cast<std::size_t>(number) - 1];
    }
    const T& at(std::int32_t number) const {
        requireElement(number);
        return elements_[static_cast<std::size_t>(number) - 1];
    }

    /// Keeps elements 1 to the smaller bound, new ones are default-made. Error 9 when negative.
    void resize(std::int32_t upperBound) {
        if (upperBound < 0)
            throw RuntimeError(ErrorNumber::subscriptOutOfRange);
        elements_.resize(static_cast<std::size_t>(upperBound));
    }

    bool operator==(const OneBasedArray&) const = default;

    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

private:
    void requireElement(std::int32_t number) const {
        if (!contains(number)) [[unlikely]]
            Raise(ErrorNumber::subscriptOutOfRange);
    }

    std::vector<T> elements_;
};

} // namespace qrtVistrelClasses4
