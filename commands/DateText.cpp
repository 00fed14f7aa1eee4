#include "commands/DateText.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kMarkerPattern = "AMPM";
constexpr int kNoon = 12;

std::string twoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

template <class Names>
const std::string& nameAt(const Names& names, int index) {
    return names.at(static_cast<std::size_t>(index));
}

/// Writes one pattern from its first character to its last.
class DateWriter {
public:
    DateWriter(std::string_view pattern, const LocalTime& time, const CalendarNames& names)
        : rest_(pattern), time_(time), names_(names),
          halfDays_(pattern.find(kMarkerPattern) != pattern.npos) {}

    std::string write() {
        while (!rest_.empty())
            text_ += rest_.starts_with(kMarkerPattern) ? marker() : part(takeRun());
        return text_;
    }

private:
    /// The next character, with those equal to it that follow.
    std::string_view takeRun() {
        const std::string_view run =
            rest_.substr(0, std::min(rest_.find_first_not_of(rest_.front()), rest_.size()));
        rest_.remove_prefix(run.size());
        return run;
    }
    std::string marker() {
        rest_.remove_prefix(kMarkerPattern.size());
        return time_.hour < kNoon ? names_.morning : names_.afternoon;
    }

    std::string part(std::string_view run) {
        switch (run.front()) {
        case 'h':
            isAfterHour_ = true;
            return number(hour(), run.size() > 1);
        case 'm':
            return isAfterHour_ ? twoDigits(time_.minute) : month(run.size());
        case 'd':
            return run.size() > 2 ? nameAt(names_.weekdays, time_.weekday) : twoDigits(time_.day);
        case 'y':
            return run.size() > 2 ? std::to_string(time_.year) : twoDigits(time_.year % 100);
        case '/':
            return names_.dateSeparator;
        case ':':
            return names_.timeSeparator;
        default:
            return std::string(run);
        }
    }
    std::string month(std::size_t size) {
        const int index = time_.month - 1;
        return size == 4   ? nameAt(names_.months, index)
               : size == 3 ? nameAt(names_.shortMonths, index)
                           : twoDigits(time_.month);
    }
    static std::string number(int value, bool padded) {
        return padded ? twoDigits(value) : std::to_string(value);
    }
    int hour() const {
        if (!halfDays_)
            return time_.hour;
        return time_.hour % kNoon == 0 ? kNoon : time_.hour % kNoon;
    }

    std::string_view rest_;
    const LocalTime& time_;
    const CalendarNames& names_;
    bool halfDays_;
    bool isAfterHour_ = false;
    std::string text_;
};

} // namespace

std::string FormatDate(std::string_view pattern, const LocalTime& time, const CalendarNames& names) {
    return DateWriter(pattern, time, names).write();
}

LocalTime LocalTimeOf(std::chrono::local_seconds moment) {
    using namespace std::chrono;
    moment = std::clamp<local_seconds>(moment, local_days(0y / January / 1),
                                       local_days(10000y / January / 1) - seconds(1));
    const local_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    return {.year = static_cast<int>(date.year()),
            .month = static_cast<int>(static_cast<unsigned>(date.month())),
            .day = static_cast<int>(static_cast<unsigned>(date.day())),
            .hour = static_cast<int>(time.hours().count()),
            .minute = static_cast<int>(time.minutes().count()),
            .second = static_cast<int>(time.seconds().count()),
            .weekday = static_cast<int>(weekday(day).c_encoding())};
}

} // namespace qrtVistrelClasses4
