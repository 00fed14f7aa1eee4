#include "tools/program/Moment.h"

#include <chrono>

namespace qrtVistrelClasses4 {
namespace {

/// Returns nothing if there is no such day or minute.
std::optional<LocalTime> existing(LocalTime time) {
    const std::chrono::year_month_day day{std::chrono::year(time.year),
                                          std::chrono::month(static_cast<unsigned>(time.month)),
                                          std::chrono::day(static_cast<unsigned>(time.day))};
    const auto within = [](int value, int last) { return value >= 0 && value <= last; };
    if (!day.ok() || !within(time.year, 9999) || !within(time.hour, 23) || !within(time.minute, 59))
        return std::nullopt;
    time.weekday = static_cast<int>(std::chrono::weekday(day).c_encoding());
    return time;
}

/// A machine whose clock is stopped.
class StoppedClock final : public Platform {
public:
    StoppedClock(Platform& machine, const LocalTime& time) : machine_(machine), time_(time) {}

    LocalTime localTime() override { return time_; }

    FileSystem& files() override { return machine_.files(); }
    RegistryStore& registry() override { return machine_.registry(); }
    MessageBoxes& messageBoxes() override { return machine_.messageBoxes(); }
    Console& console() override { return machine_.console(); }
    Inspection& inspection() override { return machine_.inspection(); }
    std::unique_ptr<ProfileFile> openProfile(const std::string& path, const std::string& original) override {
        return machine_.openProfile(path, original);
    }
    std::string systemProfilePath() override { return machine_.systemProfilePath(); }
    std::string libraryFolder() override { return machine_.libraryFolder(); }
    std::optional<std::string> logFolder() override { return machine_.logFolder(); }
    std::vector<std::string> otherFolders(FileUse use) override { return machine_.otherFolders(use); }
    std::optional<std::string> specialFolder(int number) override { return machine_.specialFolder(number); }
    std::optional<std::string> environmentVariable(const std::string& name) override {
        return machine_.environmentVariable(name);
    }
    CalendarNames calendarNames() override { return machine_.calendarNames(); }

private:
    Platform& machine_;
    LocalTime time_;
};

} // namespace

std::istream& operator>>(std::istream& in, Moment& moment) {
    const auto pass = [&in](char separator) {
        if (in.get() != separator)
            in.setstate(std::ios::failbit);
    };
    LocalTime typed;
    in >> typed.year, pass('-');
    in >> typed.month, pass('-');
    in >> typed.day, pass(' ');
    in >> typed.hour, pass(':');
    in >> typed.minute;
    if (const auto time = existing(typed); in && time)
        moment.time = *time;
    else
        in.setstate(std::ios::failbit);
    return in;
}

void AddMomentOption(CLI::App& command, std::optional<Moment>& moment) {
    command.add_option("--at", moment, "The moment to show, instead of now")
        ->type_name("\"YYYY-MM-DD HH:MM\"");
}

ScopedMoment::ScopedMoment(const std::optional<Moment>& moment)
    : clock_(std::make_unique<StoppedClock>(platform(), moment ? moment->time : platform().localTime())),
      scope_(*clock_) {}

} // namespace qrtVistrelClasses4
