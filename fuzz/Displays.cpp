// Any bytes as a list of signs.
#include "Fuzz.h"
#include "displays/DisplayDatabaseClass.h"
#include "displays/DisplayFormat.h"
#include "frame/RuntimeError.h"

#include <algorithm>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct Reading {
    std::vector<DisplayRecord> signs; ///< Those that are complete.
    bool fails = false;
};

Reading readDirectly(std::string_view text) {
    Reading result;
    DelimitedReader in(text);
    try {
        while (!in.atEnd()) {
            DisplayRecord sign;
            ReadDisplay(in, sign);
            result.signs.push_back(std::move(sign));
        }
    } catch (const RuntimeError&) { // the signs until then are what counts
        result.fails = true;
    }
    return result;
}

std::string textOf(const std::vector<DisplayRecord>& signs) {
    KeptBytes sink;
    DelimitedWriter out(sink);
    for (const DisplayRecord& sign : signs)
        WriteDisplay(out, sign);
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
    Reading direct = readDirectly(text);
    DisplayDatabaseClass signs;
    Require(load(signs, text) == !direct.fails, "a load tells whether it reached the end");
    const std::size_t last = std::max<std::size_t>(direct.signs.size() + (direct.fails ? 1 : 0), 1);
    signs.CurrentDisplayNumber(static_cast<std::int16_t>(last));
    signs.DisplayName("last"); // without a name it would not count
    if (direct.signs.size() == last)
        direct.signs.back().DisplayName = "last";
    Require(signs.TotalDisplays() == static_cast<std::int16_t>(last), "every sign counts");

    const std::string first = saved(signs);
    Require(first.starts_with(textOf(direct.signs)), "complete signs are kept");
    Require(host.machine.files().content(path + ".bak").value_or("") == text, "the old list is kept");
    constexpr std::ptrdiff_t quotesOfASign = std::ptrdiff_t{2} * 21;
    if (std::ranges::count(first, '"') != quotesOfASign * signs.TotalDisplays())
        return; // a text with a quote in it does not come back
    DisplayDatabaseClass again;
    Require(load(again, first), "what was saved can be loaded");
    const std::string second = saved(again);
    Require(second.starts_with(textOf(direct.signs)), "and holds them");
    // Half a sign, and a new one, are not mended yet.
    Require(second == first || direct.signs.size() < last, "what was saved comes back");
    DisplayDatabaseClass third;
    Require(load(third, second) && saved(third) == second, "as often as it is saved");
}

} // namespace qrtVistrelClasses4
