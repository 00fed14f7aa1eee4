// Any bytes as a list of signs.
#include "Fuzz.h"
#include "displays/DisplayFormat.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// The file of the first `count` signs.
std::string textOf(const SignList& list, std::int32_t count) {
    KeptBytes sink;
    DelimitedWriter out(sink);
    for (std::int32_t number = 1; number <= count; ++number)
        WriteDisplay(out, list.signs.at(number));
    out.finish();
    return sink.text;
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    std::string name = "Displays.dat";
    const std::string path = host.inLibrary(name);
    const auto load = [&](DisplayDatabaseClass& signs, const std::string& text) {
        host.reports.all.clear();
        host.machine.files().put(path, text);
        signs.RetrieveAllDisplayInfoFromDisk(name = "Displays.dat");
        return host.reports.all.empty();
    };
    const auto saved = [&](DisplayDatabaseClass& signs) {
        signs.WriteAllDisplaysToDisk(name = "Displays.dat");
        Require(host.machine.messageBoxes().shown.empty(), "what was loaded can be saved");
        return host.machine.files().content(path).value_or("");
    };
    const std::string text = input.rest();
    DisplayDatabaseClass signs;
    const bool isLoaded = load(signs, text);
    SignListOutcome direct = LoadSignList(path);
    Require(isLoaded == direct.isComplete(), "a load says whether it reached the end");
    Require(direct.isComplete() || direct.error->line <= text.size() + 1, "an error has a line");
    const std::int32_t whole = direct.wholeSigns, last = std::max(direct.list.signs.upperBound(), 1);
    signs.CurrentDisplayNumber(static_cast<std::int16_t>(last));
    signs.DisplayName("last"); // without a name it would not count
    if (whole == last)
        direct.list.signs.at(last).DisplayName = "last";
    Require(signs.TotalDisplays() == last, "every sign counts");
    const std::string wholeSigns = textOf(direct.list, whole);

    const std::string first = saved(signs);
    Require(first.starts_with(wholeSigns), "complete signs are kept");
    const bool isWhole = direct.isComplete() && text.find('\0') == text.npos;
    Require(host.machine.files().content(path + (isWhole ? ".bak" : ".bak2")).value_or("") == text,
            "the old list is kept, for good if it cannot be read to its end");
    constexpr std::ptrdiff_t quotesOfASign = std::ptrdiff_t{2} * 21;
    if (std::ranges::count(first, '"') != quotesOfASign * signs.TotalDisplays())
        return; // a text with a quote in it does not come back
    DisplayDatabaseClass again;
    Require(load(again, first), "what was saved can be loaded");
    const std::string second = saved(again);
    Require(second.starts_with(wholeSigns), "and holds them");
    // Half a sign, and a new one, are not mended yet.
    Require(second == first || whole < last, "what was saved comes back");
    DisplayDatabaseClass third;
    Require(load(third, second) && saved(third) == second, "as often as it is saved");
}

} // namespace qrtVistrelClasses4
