// Which procedures of the library are running, with which arguments.
#pragma once

#include "frame/Conversions.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

enum class ProcedureKind : std::uint8_t { Sub, Function, PropertyGet, PropertyLet };

/// A procedure of the library. The views refer to literals.
struct Procedure {
    std::string_view module; ///< File name of its class or module, "FrameInfoClass.cls".
    ProcedureKind kind;
    std::string_view name;

    /// Kind and name, "Property (Get) FrameName".
    std::string fullName() const;
};

/// One procedure of the trace, in text.
struct TraceLine {
    std::string module;
    std::string procedure;
    std::string arguments; ///< In brackets: "(From=2, WhereTo=7)".
};

/// Notes that a procedure was entered, and that it was left. Every procedure of the library does so by
/// itself; these are for procedures of the host that want to stand in the same trace. Skipped while tracing
/// is off.
void TraceEnter(std::string_view module, std::string_view procedure, std::string_view arguments);
void TraceLeave(std::string_view module, std::string_view procedure, std::string_view arguments);

/// The trace switch of this thread; on unless told otherwise.
bool TraceIsOn();
void SwitchTrace(bool on);

/// Procedures of this thread entered and not yet left, outermost first, with their arguments at entry.
std::vector<TraceLine> RunningProcedures();

/// Hears of every procedure with its argument text at entry and at exit. An error skips the exit. It must not
/// change objects whose procedures are running.
class TraceRecorder {
public:
    virtual ~TraceRecorder() = default;
    virtual void entered(const TraceLine& line) = 0;
    virtual void left(const TraceLine& line) = 0;
};

/// Installs a recorder for this thread as long as this object lives. `recorder` must outlive it.
class ScopedTraceRecorder {
public:
    explicit ScopedTraceRecorder(TraceRecorder& recorder);
    ~ScopedTraceRecorder();
    ScopedTraceRecorder(const ScopedTraceRecorder&) = delete;
    ScopedTraceRecorder& operator=(const ScopedTraceRecorder&) = delete;

private:
    TraceRecorder* previous_;
};

/// The class of an object that the procedure may release; its name outlives the object.
struct ReleasableObject {
    template <class Class>
    explicit ReleasableObject(const std::shared_ptr<Class>& object)
        : className(object ? object->ClassName() : "Nothing") {}
    std::string_view className;
};

/// The text of an argument's value. An omitted one is "<Missing>", an object its class's name in angle
/// brackets.
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
    else if constexpr (std::is_same_v<T, ReleasableObject>)
        return "<" + std::string(value.className) + ">";
    else if constexpr (std::is_constructible_v<ReleasableObject, const T&>)
        return TraceText(ReleasableObject(value));
    else
        return "<" + std::string(value ? value->ClassName() : "Nothing") + ">";
}

/// A procedure on the trace. It lies on the stack of the call that it stands for.
class TraceRecord {
public:
    TraceRecord() = default;
    virtual ~TraceRecord() = default;
    TraceRecord(const TraceRecord&) = delete;
    TraceRecord& operator=(const TraceRecord&) = delete;

    virtual TraceLine atEntry() const = 0;
    virtual TraceLine atExit() const = 0;
    /// Whether the trace owns the record, because its procedure has no place of its own for it.
    virtual bool isOwned() const { return false; }

    TraceRecord* outer = nullptr;
};

/// The trace of one thread. Use the functions above; `traced` is why this is here.
struct TraceState {
    bool on = true;
    TraceRecord* innermost = nullptr;
    TraceRecorder* recorder = nullptr;

    void enter(TraceRecord& record) {
        record.outer = innermost;
        innermost = &record;
        if (recorder) [[unlikely]]
            tellEntered(record);
    }
    void leave(TraceRecord& record) {
        if (recorder && on) [[unlikely]]
            tellLeft(record);
        if (innermost != &record) [[unlikely]]
            unwindTo(&record);
        innermost = record.outer;
    }
    /// Drops the records above `record`, which then is the innermost one.
    void unwindTo(TraceRecord* record);
    /// Replaces `record`, whose procedure lets an error through, by one that stays until its caller is left.
    void abandon(TraceRecord& record);

private:
    void tellEntered(const TraceRecord& record);
    void tellLeft(const TraceRecord& record);
};
extern constinit thread_local TraceState traceState;

/// An argument of a traced procedure, made at its entry. Numbers are kept as they are then, texts too when
/// the procedure can change them; objects are shown by the name of their class.
template <class T>
class Arg {
    static constexpr bool keepsCopy = std::is_arithmetic_v<T> || std::is_enum_v<T> || !std::is_const_v<T>;
    using Plain = std::remove_const_t<T>;
    using Kept = std::conditional_t<std::is_constructible_v<ReleasableObject, const Plain&>, ReleasableObject,
                                    std::conditional_t<keepsCopy, Plain, const Plain&>>;

public:
    Arg(std::string_view name, T& value) : name_(name), now_(value), entry_(value) {}
    void append(std::string& text, bool atEntry) const {
        if (!text.empty())
            text += ", ";
        text += name_;
        text += '=';
        text += atEntry ? TraceText(entry_) : TraceText(now_);
    }

private:
    std::string_view name_;
    const Plain& now_;
    Kept entry_;
};

template <class... Ts>
class ProcedureRecord final : public TraceRecord {
public:
    explicit ProcedureRecord(const Procedure& procedure, Arg<Ts>... arguments)
        : procedure_(procedure), arguments_(std::move(arguments)...) {}
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
