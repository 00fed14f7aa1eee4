// Any bytes as the list of recent files, up to a NUL, then names to add ("+") or to take out.
#include "Fuzz.h"
#include "frame/DelimitedValues.h"
#include "platform/LetterCase.h"
#include <qrtVistrelClasses4/MostRecentlyUsed.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

struct Reading {
    Texts names;
    bool fails = false;
};

Reading readDirectly(std::string_view text) {
    Reading result;
    DelimitedReader in(text);
    try {
        while (!in.atEnd())
            in.get(result.names.emplace_back());
    } catch (const RuntimeError&) { // the names until then are what counts
        result.fails = true;
    }
    return result;
}

/// A quote in a name damages the file.
bool hasQuotes(const Texts& names) {
    return std::ranges::any_of(names, [](const auto& name) { return name.find('"') != name.npos; });
}

Texts namesOf(MostRecentlyUsed& recent, std::size_t count) {
    Texts names;
    for (std::size_t number = 1; number <= count; ++number)
        names.push_back(recent.GetFileName(static_cast<std::int16_t>(number)));
    return names;
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    const std::string path = host.inLibrary("VistrelLite.MRU");
    const std::string text = input.text();
    host.machine.files().put(path, text);
    auto [names, fails] = readDirectly(text);
    MostRecentlyUsed recent;
    Require(host.reports.all.empty() == !fails, "a damaged file is reported");
    Require(host.machine.files().content(path + ".bak") == (fails ? std::optional(text) : std::nullopt),
            "a damaged file is kept");
    while (!input.atEnd() && !hasQuotes(names)) {
        std::string name = input.text();
        const bool adds = name.starts_with('+');
        name.erase(0, adds ? 1 : 0);
        std::ranges::replace(name, '"', '\'');
        if (adds)
            recent.AddFileToMostRecentlyUsedList(name);
        else
            recent.RemoveFileFromMostRecentlyUsed(name);
        if (adds && name.empty())
            continue;
        std::erase_if(names, [&](const auto& it) { return it.empty() || EqualIgnoringAnsiCase(it, name); });
        if (adds)
            names.insert(names.begin(), name);
        names.emplace_back();
        Require(namesOf(recent, names.size()) == names, "every other name stays, in its order");
        MostRecentlyUsed other;
        Require(namesOf(other, names.size() + 1) == namesOf(recent, names.size() + 1), "and is in the file");
    }
}

} // namespace qrtVistrelClasses4
