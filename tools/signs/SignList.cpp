#include "tools/signs/SignList.h"

#include "displays/DisplayNames.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"
#include "tools/program/Encoding.h"
#include "tools/signs/SignProperties.h"

#include <limits>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

constexpr const char* kFileName = "Displays.dat";

/// Keeps the last error that an operator would see.
class LastError final : public ErrorReporter {
public:
    void report(const ErrorReport& report) override {
        if (!report.error.isQuiet())
            error = report.error;
    }
    std::optional<RuntimeError> error;
};

/// Tells the library's messages on, and notes that there was one.
class NotingBoxes final : public MessageBoxes {
public:
    explicit NotingBoxes(MessageBoxes& boxes) : boxes_(boxes) {}
    MessageAnswer show(const Message& message) override {
        wasShown = true;
        return boxes_.show(message);
    }
    bool attended() override { return boxes_.attended(); }
    bool wasShown = false;

private:
    MessageBoxes& boxes_;
};

/// Whether sign `number` is there, counted or not.
bool exists(DisplayDatabaseClass& signs, std::int16_t number) {
    LastError reporter;
    const ScopedErrorReporter scope(reporter);
    signs.CurrentDisplayNumber(number);
    (void)signs.FrameSize();
    return !reporter.error;
}

/// Where the list is saved, wherever it was read.
std::string writtenPath() { return JoinPath(LibraryFolder(), kFileName); }

bool endsNameless(const std::vector<ordered_json>& records) {
    return !records.empty() && records.back()["DisplayName"].get_ref<const std::string&>().empty();
}

std::string count(std::size_t number, const char* what) {
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

} // namespace

SignList::SignList() : path_(kFileName) {
    LastError reporter;
    const ScopedErrorReporter scope(reporter);
    signs.RetrieveAllDisplayInfoFromDisk(path_);
    error_ = reporter.error;
}

bool SignList::isMissing() const {
    return error_ && error_->number() == static_cast<int>(ErrorNumber::fileNotFound);
}

std::vector<ordered_json> SignList::records() {
    std::vector<ordered_json> records;
    constexpr std::int32_t most = std::numeric_limits<std::int16_t>::max();
    for (std::int32_t number = 1; number <= most && exists(signs, static_cast<std::int16_t>(number));
         ++number)
        records.push_back(SignJson(signs, static_cast<std::int16_t>(number)));
    // A blank record stands for an empty list, and for what a damaged list ends with.
    DisplayDatabaseClass untouched;
    if (!records.empty() && records.back() == SignJson(untouched, 1))
        records.pop_back();
    return records;
}

void SignList::tellFaults(ErrorLines& errors) {
    const std::vector<ordered_json> found = records();
    errors.about(path_);
    if (error_ && !isMissing()) {
        errors.add(*error_);
        if (!found.empty())
            errors.add("only " + count(found.size(), "sign") +
                       " could be read, the last of them perhaps in part");
    } else if (endsNameless(found)) {
        errors.add("the last sign has no name, so that the list counts as empty and hides " +
                   count(found.size(), "record"));
    }
}

bool SignList::mayBeChanged(ErrorLines& errors) {
    tellFaults(errors);
    if (isMissing() && platform().files().kindOf(writtenPath()) != EntryKind::missing) {
        errors.add(*error_);
        errors.add("saving would put the change into another list, " + writtenPath());
    }
    if (!errors.empty())
        errors.add("not saved, since signs could be lost");
    return errors.empty();
}

bool SignList::canBeSaved(ErrorLines& errors) {
    const std::vector<ordered_json> all = records();
    errors.about(path_);
    if (endsNameless(all))
        errors.add("the list would end with a sign without a name, and count as empty");
    for (std::size_t number = 1; number <= all.size(); ++number) {
        signs.CurrentDisplayNumber(static_cast<std::int16_t>(number));
        errors.about(all[number - 1]["DisplayName"].get<std::string>());
        for (const std::string& property : PropertiesHolding(signs, '"'))
            errors.add(property + ": a list of signs cannot hold quotes");
    }
    return errors.empty();
}

bool SignList::save(ErrorLines& errors) {
    if (!canBeSaved(errors)) {
        errors.about(path_);
        errors.add("not saved");
        return false;
    }
    NotingBoxes boxes(messageBoxes());
    const ScopedMessageBoxes boxesScope(boxes);
    EveryErrorReporter reporter(errors);
    const ScopedErrorReporter reporterScope(reporter);
    errors.about("the previous list could not be kept as " + writtenPath() + ".bak");
    path_ = kFileName;
    signs.WriteAllDisplaysToDisk(path_);
    errors.about(path_);
    if (boxes.wasShown)
        errors.add("not saved");
    return !boxes.wasShown;
}

std::int16_t FindSign(DisplayDatabaseClass& signs, const std::string& name) {
    const std::int16_t number = signs.FindDisplayByName(name);
    return number >= 1 ? number : signs.FindDisplayByName(EscapeNumericName(name));
}

bool SelectSign(DisplayDatabaseClass& signs, const std::string& typed, ErrorLines& errors) {
    const std::optional<std::string> name = AnsiFromUtf8(typed);
    const std::int16_t number = name ? FindSign(signs, *name) : std::int16_t{-1};
    if (number < 1) {
        errors.about(typed);
        errors.add("there is no sign of that name");
        return false;
    }
    signs.CurrentDisplayNumber(number);
    return true;
}

} // namespace qrtVistrelClasses4
