// What the call trace keeps of a running procedure. Only `traced` and its relatives use this directly.
#pragma once

#include "frame/Conversions.h"
#include "frame/Procedure.h"
#include <qrtVistrelClasses4/CallTrace.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {

class ObjectCall;

/// A procedure on the trace. It lies on the stack of the procedure's call.
class TraceRecord {
public:
    TraceRecord() = default;
    virtual ~TraceRecord() = default;
    TraceRecord(const TraceRecord&) = delete;
    TraceRecord& operator=(const TraceRecord&) = delete;

    virtual TraceLine atEntry() const = 0;
    virtual TraceLine atExit() const = 0;
    /// True if the trace owns the record, because no call holds it.
    virtual bool isOwned() const { return false; }

    TraceRecord* outer = nullptr;
};

/// The trace of one thread, and the calls of objects that run on it.
struct TraceState {
    bool on = true;
    TraceRecord* innermost = nullptr;
    TraceRecorder* recorder = nullptr;
    ObjectCall* call = nullptr; ///< The innermost call of an object, whether the trace is on or not.

    bool isRecorded() const { return on && recorder; }
    void enter(TraceRecord& record) {
        record.outer = innermost;
        innermost = &record;
        if (recorder) [[unlikely]]
            recordEntry(record);
    }
    void leave(TraceRecord& record) {
        if (isRecorded()) [[unlikely]]
            recordExit(record);
        if (innermost != &record) [[unlikely]]
            unwindTo(&record);
        innermost = record.outer;
    }
    /// Drops the records above `record`, which is the innermost one afterwards.
    void unwindTo(TraceRecord* record);
    /// Takes the entered `record` of a failed procedure off the trace. A copy of it stays on the trace until
    /// the caller is left, unless there is no caller, or no memory for the copy.
    void abandon(TraceRecord& record) noexcept;

private:
    void recordEntry(const TraceRecord& record);
    void recordExit(const TraceRecord& record);
};
// It is reached without a call, because each call of a procedure looks at it.
[[gnu::tls_model("initial-exec")]] extern constinit thread_local TraceState traceState;

/// The name of an object's class. It stays valid when a procedure releases the object.
struct ObjectClassName {
    template <class Class>
    explicit ObjectClassName(const std::shared_ptr<Class>& object)
        : text(object ? object->ClassName() : "Nothing") {}
    std::string_view text;
};

/// The text of an argument's value. An omitted argument is "<Missing>", an object is the name of its class in
/// angle brackets.
template <class T>
std::string TraceText(const T& value) {
    if constexpr (std::is_same_v<T, bool>)
        return std::string(BooleanToText(value));
    else if constexpr (std::is_floating_point_v<T>)
        return NumberToText(value);
    else if constexpr (std::is_enum_v<T> || std::is_integral_v<T>)
        return NumberToText(static_cast<std::int32_t>(value));
    else if constexpr (std::is_convertible_v<const T&, std::string_view>)
        return std::string(std::string_view(value));
    else if constexpr (std::is_same_v<T, std::optional<std::string>>)
        return value.value_or("<Missing>");
    else if constexpr (std::is_same_v<T, ObjectClassName>)
        return "<" + std::string(value.text) + ">";
    else if constexpr (std::is_constructible_v<ObjectClassName, const T&>)
        return TraceText(ObjectClassName(value));
    else
        return "<" + std::string(value ? value->ClassName() : "Nothing") + ">";
}

/// An argument of a procedure: its name, and its value at entry and now. The value at entry is a copy for
/// numbers, and for all that the procedure can change; for objects it is the name of their class.
template <class T>
class Arg {
    using Plain = std::remove_const_t<T>;
    static constexpr bool isObject = std::is_constructible_v<ObjectClassName, const Plain&>;
    static constexpr bool isCopied = std::is_arithmetic_v<T> || std::is_enum_v<T> || !std::is_const_v<T>;
    /// True if the copy may need memory, so that it must be made where errors are trapped.
    static constexpr bool isCopiedLater =
        !isObject && isCopied && !std::is_nothrow_copy_constructible_v<Plain>;
    template <bool condition, class Then, class Else>
    using If = std::conditional_t<condition, Then, Else>;
    using Entry = If<isObject, ObjectClassName,
                     If<isCopiedLater, std::optional<Plain>, If<isCopied, Plain, const Plain&>>>;

public:
    Arg(std::string_view name, T& value) noexcept : name_(name), now_(value), entry_(entryOf(value)) {}

    /// Makes the copy that the constructor could not make without risk. To be called where errors are
    /// trapped, before the procedure runs.
    void keep() {
        if constexpr (isCopiedLater)
            entry_.emplace(now_);
    }
    void append(std::string& text, bool atEntry) const {
        if (!text.empty())
            text += ", ";
        text += name_;
        text += '=';
        text += atEntry ? textAtEntry() : TraceText(now_);
    }

private:
    static Entry entryOf(const Plain& value) noexcept {
        if constexpr (isCopiedLater)
            return std::nullopt;
        else
            return Entry(value);
    }
    std::string textAtEntry() const {
        if constexpr (isCopiedLater)
            return TraceText(entry_ ? *entry_ : now_);
        else
            return TraceText(entry_);
    }

    std::string_view name_;
    const Plain& now_;
    Entry entry_;
};

template <class... Ts>
class ProcedureRecord final : public TraceRecord {
public:
    explicit ProcedureRecord(const Procedure& procedure, Arg<Ts>&&... arguments) noexcept
        : procedure_(procedure), arguments_(std::move(arguments)...) {}

    /// Calls `keep` for each argument.
    void keepArguments() {
        std::apply([](auto&... argument) { (argument.keep(), ...); }, arguments_);
    }
    TraceLine atEntry() const override { return line(true); }
    TraceLine atExit() const override { return line(false); }

private:
    TraceLine line(bool atEntry) const {
        std::string text;
        std::apply([&](const auto&... argument) { (argument.append(text, atEntry), ...); }, arguments_);
        return {std::string(procedure_.module), procedure_.fullName(), "(" + text + ")"};
    }

    Procedure procedure_;
    std::tuple<Arg<Ts>...> arguments_;
};

} // namespace qrtVistrelClasses4
