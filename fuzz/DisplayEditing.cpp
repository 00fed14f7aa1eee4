// Edits of the list of signs, compared with a plain list.
#include "Fuzz.h"
#include "platform/LetterCase.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/DisplayNames.h>

#include <algorithm>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct Sign {
    std::string name, firmware;
    std::int32_t delay = 0;

    bool operator==(const Sign&) const = default;
};

struct ListModel {
    std::vector<Sign> signs{1};

    int total() const { return signs.back().name.empty() ? 0 : static_cast<int>(signs.size()); }
    Sign* at(int number) {
        const auto index = static_cast<std::size_t>(number) - 1;
        return index < signs.size() ? &signs[index] : nullptr;
    }
    int find(const std::string& name) const {
        const auto end = signs.begin() + total();
        const auto isMeant = [&](const Sign& sign) { return EqualIgnoringAnsiCase(sign.name, name); };
        const auto found = std::find_if(signs.begin(), end, isMeant);
        return found == end ? -1 : static_cast<int>(found - signs.begin()) + 1;
    }
    int add(const std::string& name, const Sign* original) {
        if (name.empty() || find(name) > 0)
            return -1;
        const Sign added = original ? *original : Sign();
        signs.resize(static_cast<std::size_t>(total()) + 1);
        if (original)
            signs.back() = added;
        signs.back().name = EscapeNumericName(name);
        return static_cast<int>(signs.size());
    }
    void remove(int number) {
        if (total() == 1 && number == 1)
            signs[0] = Sign();
        else if (number >= 1 && number <= total())
            signs.erase(signs.begin() + number - 1);
    }
};

/// A list and its model. Both get the same operations.
class DisplaysAndModel {
public:
    explicit DisplaysAndModel(FuzzedInput& input) : input_(input) {}

    void step() {
        switch (input_.byte() % 8) {
        case 0:
            return remove(number());
        case 1:
            return duplicate(name(), name());
        case 2:
            return rename(number(), name());
        case 3:
            return change(number(), name(), static_cast<std::int32_t>(input_.byte() * 0x1010101U));
        case 4:
            return find(name());
        case 5:
            return saveAndLoad();
        default:
            return add(name());
        }
    }
    void compare() {
        Require(displays_.TotalDisplays() == model_.total(), "number of signs");
        std::vector<Sign> signs;
        for (const DisplayRecord& sign : displays_.Value().signs)
            signs.push_back({sign.DisplayName, sign.AppDesc, sign.ScrollPauseDelay});
        Require(signs == model_.signs, "what the signs hold");
    }

private:
    int number() { return static_cast<int>(input_.byte() % (model_.signs.size() + 3)) - 1; }
    /// Often one that is there, in another case.
    std::string name() {
        const unsigned kind = input_.byte() % 4;
        if (const Sign* const sign = kind < 2 ? model_.at(number()) : nullptr)
            return kind == 0 ? sign->name : AnsiUpperCase(sign->name);
        std::string name = input_.text();
        std::ranges::replace(name, '"', '\''); // a quote does not come back from the file
        return name;
    }

    void add(const std::string& name) {
        Require(displays_.AddNewDisplay(name) == model_.add(name, nullptr), "number of a new sign");
    }
    void remove(int number) {
        displays_.RemoveDisplay(static_cast<std::int16_t>(number));
        model_.remove(number);
    }
    void duplicate(const std::string& original, const std::string& name) {
        const int found = model_.find(original);
        Require(displays_.Duplicate(original, name) == (found < 1 ? -1 : model_.add(name, model_.at(found))),
                "number of a copy");
    }
    void find(const std::string& name) {
        for (int times = 0; times < 20; ++times) // the first few in another way than the others
            Require(displays_.FindDisplayByName(name) == model_.find(name), "place of a name");
    }
    void rename(int number, const std::string& name) {
        displays_.CurrentDisplayNumber(static_cast<std::int16_t>(number));
        displays_.DisplayName(name);
        if (Sign* const sign = model_.at(number))
            sign->name = EscapeNumericName(name);
    }
    void change(int number, const std::string& firmware, std::int32_t delay) {
        displays_.CurrentDisplayNumber(static_cast<std::int16_t>(number));
        displays_.AppDesc(firmware);
        displays_.ScrollPauseDelay(delay);
        if (Sign* const sign = model_.at(number))
            *sign = {sign->name, firmware, delay};
    }
    /// An empty list is not read.
    void saveAndLoad() {
        std::string name = "Displays.dat";
        displays_.WriteAllDisplaysToDisk(name);
        name = "Displays.dat";
        displays_.RetrieveAllDisplayInfoFromDisk(name);
    }

    FuzzedInput& input_;
    DisplayDatabaseClass displays_;
    ListModel model_;
};

} // namespace

void RunFuzzed(FuzzedInput input) {
    const TestHost host;
    DisplaysAndModel pair(input);
    for (int step = 0; step < 60 && !input.atEnd(); ++step) {
        pair.step();
        pair.compare();
    }
}

} // namespace qrtVistrelClasses4
