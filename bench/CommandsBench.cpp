// Commands of the sign: placeholders of older texts, against passes over the text; the table of commands,
// load and save, against the least that reading and writing can cost.
#include "bench/Dice.h"
#include "bench/OlderTexts.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"
#include "commands/LegacyVariables.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <algorithm>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfPasses = 0.05;
constexpr double kMostOfCopying = 18;
constexpr double kMostOfReading = 15;
constexpr double kMostOfWriting = 20;

constexpr std::int16_t kCommands = 20000;

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
    RegisterWork("legacy/passes", [texts, replacements](benchmark::State& state) {
        TimeWork(state, [&] {
            for (const std::string& text : texts)
                benchmark::DoNotOptimize(replaceInPasses(text, replacements));
        });
    });
    RegisterWork("legacy/limit", [texts](benchmark::State& state) {
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
    RegisterWork("commands/save/limit", [path](benchmark::State& state) {
        const WholeFile finished = ReadWholeFile(path);
        TimeWork(state, [&] { WriteNewFile(path, finished.text()); });
    });
}

/// Loading and saving must give back the table, byte for byte.
void makeTable(const std::string& path) {
    const std::string table = tableOf(makeCommands());
    Require(CountLineEnds(table) == kCommands, "the table holds other lines");
    WriteNewFile(path, table);
    WriteSetting(std::string(kVistrelLite), "Commands", "KeyByteFile", path);
    auto commands = load();
    Require(commands->iTotalCommands() == kCommands, "cannot load " + path);
    WriteNewFile(path, "the table before");
    commands.reset();
    Require(ReadWholeFile(path).text() == table, "a loaded table is saved differently");
}

} // namespace

std::vector<Ratio> CommandsSubject(const BenchFolder& folder) {
    registerLegacy();
    const std::string path = folder.file("commands.dat");
    makeTable(path);
    registerTable(path);
    const std::string texts = "convert 1049 older texts";
    return {{texts, "legacy/convert", "legacy/passes", Bound::must, kMostOfPasses},
            {texts, "legacy/convert", "legacy/limit", Bound::aim, kMostOfCopying},
            {"load 20000 commands", "commands/load", "commands/load/limit", Bound::aim, kMostOfReading},
            {"save 20000 commands", "commands/save", "commands/save/limit", Bound::aim, kMostOfWriting}};
}

} // namespace qrtVistrelClasses4::bench
