// Commands of the sign: placeholders of older texts, against passes over the text; the table of commands,
// load, save, search and preview, against a hash table, careful code for the same job, and the least that
// reading and writing can cost.
#include "bench/CarefulCommands.h"
#include "bench/Dice.h"
#include "bench/OlderTexts.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"
#include "commands/LegacyVariables.h"
#include "commands/PreviewText.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <algorithm>
#include <unordered_map>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfPasses = 0.1;
constexpr double kMostOfCopying = 18;
constexpr double kMostOfCarefulConverter = 1.3;
constexpr double kMostOfReading = 28;
constexpr double kMostOfWriting = 20;
constexpr double kUsualOfLimit = 10;
constexpr double kMostOfCareful = 1.2;
constexpr double kMostOfMap = 2.5;
constexpr double kUsualOfMap = 1.3;

constexpr std::int16_t kCommands = 20000;
constexpr unsigned kKeysToOneMissing = 10; ///< Of the keys that are looked up, so many are in the table.

std::string replaceInPasses(std::string text, const std::vector<Replacement>& replacements) {
    for (const auto& [placeholder, code] : replacements)
        for (std::size_t at = text.find(placeholder); at != text.npos; at = text.find(placeholder, at)) {
            text.replace(at, placeholder.size(), code);
            at += code.size();
        }
    return text;
}

void registerLegacy() {
    const auto replacements = MakeReplacements();
    const std::vector<std::string> texts = MakeTexts(replacements);
    for (const std::string& text : texts) {
        Require(text.size() == kTextSize, "a text has another size");
        Require(ConvertLegacyVariables(text) == replaceInPasses(text, replacements),
                "passes make another text of " + text);
    }
    RegisterWork("legacy/convert", [texts](benchmark::State& state) {
        TimeWork(state, [&] {
            for (const std::string& text : texts)
                benchmark::DoNotOptimize(ConvertLegacyVariables(text));
        });
    });
    RegisterWork("legacy/convert/passes", [texts, replacements](benchmark::State& state) {
        TimeWork(state, [&] {
            for (const std::string& text : texts)
                benchmark::DoNotOptimize(replaceInPasses(text, replacements));
        });
    });
    const CarefulConverter careful;
    Require(std::ranges::all_of(texts,
                                [&](const std::string& text) {
                                    return careful.converted(text) == ConvertLegacyVariables(text);
                                }),
            "careful code makes other texts");
    RegisterWork("legacy/convert/careful", [texts, careful](benchmark::State& state) {
        TimeWork(state, [&] {
            for (const std::string& text : texts)
                benchmark::DoNotOptimize(careful.converted(text));
        });
    });
    RegisterWork("legacy/convert/limit", [texts](benchmark::State& state) {
        TimeWork(state, [&] {
            for (const std::string& text : texts) {
                const std::string copy = text;
                benchmark::DoNotOptimize(std::count_if(
                    copy.begin(), copy.end(), [](char letter) { return letter == '{' || letter == '}'; }));
            }
        });
    });
}

/// The built-in commands and those that a user has added: a key, a few bytes, and now and then a remark.
std::vector<CommandInfoType> makeCommands() {
    const CommandTable builtIn = BuiltInCommands();
    std::vector<CommandInfoType> commands(builtIn.rows().begin(), builtIn.rows().end());
    Dice dice;
    while (commands.size() < kCommands) {
        auto& info = commands.emplace_back().sCMDInfo;
        info[kCommandKey] = "|user_" + std::to_string(commands.size()) + "|";
        info[kCommandBytes] = {static_cast<char>(1 + dice.below(9)), static_cast<char>(128 + dice.below(127)),
                               static_cast<char>('0' + dice.below(10))};
        if (dice.once(4))
            info.back() = "added by the user";
    }
    return commands;
}

/// The file of these commands, put together plainly.
std::string tableOf(const std::vector<CommandInfoType>& commands) {
    std::string table;
    for (const auto& [info] : commands)
        table += info[0] + '\xff' + info[1] + '\xff' + info[2] + '\xff' + info[3] + "\r\n";
    return table;
}

std::unique_ptr<clsCommandInterface> load() { return std::make_unique<clsCommandInterface>(); }

/// The constructor loads the table, and the destructor saves it. Only one of them is timed.
void registerTable(const std::string& path) {
    RegisterWork("commands/load", [](benchmark::State& state) { TimeMaking(state, load); });
    RegisterWork("commands/save", [](benchmark::State& state) {
        auto commands = load();
        TimeWork(
            state, [&] { commands.reset(); }, [&] { commands = load(); });
    });
    RegisterWork("commands/load/limit", [path](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(CountLineEnds(ReadWholeFile(path).text())); });
    });
    for (const auto& [name, write] : {std::pair("limit", &WriteNewFile), std::pair("durable", &WriteDurably)})
        RegisterWork("commands/save/" + std::string(name), [path, write](benchmark::State& state) {
            const WholeFile finished = ReadWholeFile(path);
            TimeWork(state, [&] { write(path, finished.text()); });
        });
    RegisterWork("commands/load/careful", [path](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<CarefulCommands>(path); });
    });
    RegisterWork("commands/save/careful", [path](benchmark::State& state) {
        const CarefulCommands commands(path);
        TimeWork(state, [&] { commands.save(path); });
    });
}

/// All keys of the table in any order, with some among them that it lacks.
std::vector<std::string> keysToFind(const std::vector<CommandInfoType>& commands) {
    std::vector<std::string> keys;
    for (const auto& [info] : commands)
        keys.push_back(info[kCommandKey]);
    for (std::size_t number = 0; number < commands.size() / kKeysToOneMissing; ++number)
        keys.push_back("|guest_" + std::to_string(number) + "|");
    Dice dice;
    for (std::size_t left = keys.size(); left > 1; --left)
        std::swap(keys[left - 1], keys[dice.below(left)]);
    return keys;
}

using Map = std::unordered_map<std::string, std::string>;

std::string bytesIn(const Map& map, const std::string& key) {
    const auto found = map.find(key);
    return found == map.end() ? key : found->second;
}

/// Each contestant gives the bytes of every key, or the key that it does not have.
void registerLookup(const std::vector<CommandInfoType>& commands) {
    auto map = std::make_shared<Map>();
    for (const auto& [info] : commands)
        map->emplace(info[kCommandKey], info[kCommandBytes]);
    const std::vector<std::string> keys = keysToFind(commands);
    for (const auto table = load(); const std::string& key : keys)
        Require(table->sCommandBytesByKey(key) == bytesIn(*map, key), "another command is found for " + key);
    const auto add = [&](const std::string& name, auto make, auto bytesOf) {
        RegisterWork("commands/lookup" + name, [=](benchmark::State& state) {
            const auto table = make();
            TimeWork(state, [&] {
                for (const std::string& key : keys)
                    benchmark::DoNotOptimize(bytesOf(*table, key));
            });
        });
    };
    using Commands = clsCommandInterface;
    add("", load, [](const Commands& table, const auto& key) { return table.sCommandBytesByKey(key); });
    add("/value", load, [](const Commands& table, const auto& key) { return table.Value().bytesOf(key); });
    add(
        "/unordered_map", [map] { return map; }, &bytesIn);
}

/// A text with a few commands of the user, which the preview shows as their bytes.
std::string textToPreview(const std::vector<CommandInfoType>& commands) {
    Dice dice;
    std::string text = "Platform ";
    while (text.size() < kTextSize)
        text += commands[commands.size() / 2 + dice.below(commands.size() / 2)].sCMDInfo[kCommandKey] +
                " leaves | at {9} ";
    return text;
}

/// Each contestant loads the table, makes the preview of one text, and saves the table.
void registerPreview(const std::string& path, const std::vector<CommandInfoType>& commands) {
    const std::string text = textToPreview(commands);
    const auto previewCarefully = [path, text] {
        const CarefulCommands table(path);
        std::string shown = CarefulPreview(table).of(text);
        table.save(path);
        return shown;
    };
    Require(PreviewText(text, 0) == previewCarefully(), "careful code shows another text");
    RegisterWork("commands/preview", [text](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(PreviewText(text, 0)); });
    });
    RegisterWork("commands/preview/careful", [previewCarefully](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(previewCarefully()); });
    });
}

/// Loading and saving must give back the table, byte for byte.
void makeTable(const std::string& path, const std::vector<CommandInfoType>& all) {
    const std::string table = tableOf(all);
    Require(CountLineEnds(table) == kCommands, "the table holds other lines");
    WriteNewFile(path, table);
    WriteSetting(std::string(kVistrelLite), "Commands", "KeyByteFile", path);
    auto commands = load();
    Require(commands->iTotalCommands() == kCommands, "cannot load " + path);
    WriteNewFile(path, "the table before");
    commands.reset();
    Require(ReadWholeFile(path).text() == table, "a loaded table is saved differently");
    const CarefulCommands careful(path);
    Require(careful.rows() == all, "careful code loads other commands");
    careful.save(path);
    Require(ReadWholeFile(path).text() == table, "careful code saves other commands");
}

} // namespace

std::vector<Ratio> CommandsSubject(const BenchFolder& folder) {
    registerLegacy();
    const std::string path = folder.file("commands.dat");
    const std::vector<CommandInfoType> commands = makeCommands();
    makeTable(path, commands);
    registerTable(path);
    registerLookup(commands);
    registerPreview(path, commands);

    std::vector<Ratio> ratios;
    const auto compare = [&](const std::string& subject, const std::string& work, const std::string& against,
                             Bound bound, double most) {
        ratios.push_back({subject, work, work + "/" + against, bound, most});
    };
    const std::string texts = "convert 1049 older texts";
    compare(texts, "legacy/convert", "passes", Bound::must, kMostOfPasses);
    compare(texts, "legacy/convert", "limit", Bound::aim, kMostOfCopying);
    compare(texts, "legacy/convert", "careful", Bound::aim, kMostOfCarefulConverter);
    const std::string loading = "load 20,000 commands", saving = "save 20,000 commands";
    compare(loading, "commands/load", "limit", Bound::must, kMostOfReading);
    compare(loading, "commands/load", "limit", Bound::aim, kUsualOfLimit);
    compare(loading, "commands/load", "careful", Bound::aim, kMostOfCareful);
    compare(saving, "commands/save", "limit", Bound::must, kMostOfWriting);
    compare(saving, "commands/save", "limit", Bound::aim, kUsualOfLimit);
    compare(saving, "commands/save", "durable", Bound::aim, kUsualOfLimit);
    compare(saving, "commands/save", "careful", Bound::aim, kMostOfCareful);
    compare("look up 22,000 keys", "commands/lookup", "unordered_map", Bound::must, kMostOfMap);
    compare("look up 22,000 keys", "commands/lookup", "unordered_map", Bound::aim, kUsualOfMap);
    ratios.push_back({"the same in the table alone", "commands/lookup/value", "commands/lookup/unordered_map",
                      Bound::aim, kUsualOfMap});
    compare("text, 20,000 commands", "commands/preview", "careful", Bound::aim, kMostOfCareful);
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
