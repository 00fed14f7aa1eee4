// Arrays that count from 1, as users of the application do.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// An array of elements 1 to `upperBound()`, which is 0 for an empty array. This class is the only place that
/// subtracts one. With a `std::array` as `Elements` the bound is fixed.
template <class T, class Elements = std::vector<T>>
class OneBasedArray {
public:
    OneBasedArray() = default;
    explicit OneBasedArray(std::int32_t upperBound) { resize(upperBound); }

    std::int32_t upperBound() const { return static_cast<std::int32_t>(elements_.size()); }
    bool empty() const { return elements_.empty(); }
    bool contains(std::int32_t number) const { return number >= 1 && number <= upperBound(); }

    /// Error 9 if `number` is outside the array.
    T& at(std::int32_t number) {
        requireElement(number);
        return elements_[static_cast<std::size_t>(number) - 1];
    }
    const T& at(std::int32_t number) const {
        requireElement(number);
        return elements_[static_cast<std::size_t>(number) - 1];
    }

    /// Keeps the elements up to the smaller bound; new elements have their default value. Error 9 if
    /// `upperBound` is negative.
    void resize(std::int32_t upperBound) { elements_.resize(sizeFor(upperBound)); }

    /// Reserves memory for `upperBound` elements, so that growing up to that number moves no element. The
    /// bound stays. Error 9 if `upperBound` is negative.
    void reserve(std::int32_t upperBound) { elements_.reserve(sizeFor(upperBound)); }
    /// Number of elements that there is memory for.
    std::size_t capacity() const { return elements_.capacity(); }

    /// Moves the elements from `number` on up by one; the last one is lost. Element `number` is valid
    /// afterwards, but its value is not specified. Error 9 if `number` is outside the array.
    void moveUp(std::int32_t number) {
        requireElement(number);
        std::move_backward(place(number), end() - 1, end());
    }

    /// Inserts `count` copies of element `number` before it. Error 9 if `number` is outside the array, or
    /// `count` is negative.
    void repeat(std::int32_t number, std::int32_t count) {
        const T copied = at(number);
        elements_.insert(place(number), sizeFor(count), copied);
    }

    /// Removes the elements `first` to `last`, and none if `last` is less than `first`. Error 9 if one of
    /// them is outside the array, which then does not change.
    void erase(std::int32_t first, std::int32_t last) {
        if (last < first)
            return;
        requireElement(first);
        requireElement(last);
        elements_.erase(place(first), place(last) + 1);
    }
    void erase(std::int32_t number) { erase(number, number); }

    /// Moves element `from` to the place of element `to`; the elements between them move by one. Error 9 if
    /// either is outside the array, which then does not change.
    void move(std::int32_t from, std::int32_t to) {
        requireElement(to);
        T moved = std::move(at(from));
        if (from < to)
            std::move(place(from) + 1, place(to) + 1, place(from));
        else
            std::move_backward(place(to), place(from), place(from) + 1);
        at(to) = std::move(moved);
    }

    bool operator==(const OneBasedArray&) const = default;

    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

private:
    static std::size_t sizeFor(std::int32_t count) {
        if (count < 0)
            throw RuntimeError(ErrorNumber::subscriptOutOfRange);
        return static_cast<std::size_t>(count);
    }
    auto place(std::int32_t number) { return elements_.begin() + (number - 1); }
    void requireElement(std::int32_t number) const {
        if (!contains(number)) [[unlikely]]
            Raise(ErrorNumber::subscriptOutOfRange);
    }

    Elements elements_{};
};

} // namespace qrtVistrelClasses4
