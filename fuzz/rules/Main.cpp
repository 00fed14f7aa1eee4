// Tries all rules: random playfiles that nothing is wrong with, and the same with one fault of each rule.
// Arguments: the number of valid playfiles, and of turns with all faults.
#include "fuzz/PlayfileBytes.h"
#include "fuzz/rules/Faults.h"

#include <algorithm>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace qrtVistrelClasses4 {
namespace {

std::string describe(const Finding& finding) {
    std::ostringstream text;
    text << SeverityName(finding.rule->severity) << ' ' << finding.rule->name << " in frame " << finding.frame
         << ", line " << finding.line << ": " << finding.message;
    return text.str();
}

[[noreturn]] void fail(const std::string& why, const std::vector<Finding>& findings) {
    std::string text = why;
    for (const Finding& finding : findings)
        text += "\n  " + describe(finding);
    throw std::logic_error(text);
}

bool hasRule(const std::vector<Finding>& findings, std::string_view rule) {
    return std::ranges::any_of(findings, [&](const Finding& finding) { return finding.rule->name == rule; });
}

/// Whether two findings are about the same, though perhaps with other values.
bool areAlike(const Finding& one, const Finding& other) {
    return one.rule == other.rule && one.frame == other.frame && one.line == other.line &&
           one.property == other.property;
}

std::vector<std::string> linesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    std::istringstream in(bytes);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

/// The fix must make the finding go, add no other one, and change the line of the file that it names.
void tryFix(const Patient& patient, const Finding& finding, const std::vector<Finding>& before) {
    Playfile fixed = patient.playfile;
    if (!ApplyFix(fixed, finding))
        fail("a fix cannot be applied", {finding});
    ValidationCircumstances known = patient.known;
    known.loaded = nullptr;
    const std::vector<Finding> after = Validate(fixed, known);
    for (const Finding& left : after)
        if (areAlike(left, finding) ||
            std::ranges::none_of(before, [&](const Finding& it) { return areAlike(it, left); }))
            fail("a fix leaves or adds\n  " + describe(left) + "\n of", {finding});
    const auto lines = linesOf(BytesOf(patient.playfile.frames)), changed = linesOf(BytesOf(fixed.frames));
    for (std::size_t line = 0; line < lines.size(); ++line)
        if (finding.fileLine != 0 &&
            (lines[line] != changed.at(line)) != (line + 1 == static_cast<std::size_t>(finding.fileLine)))
            fail("another line of the file changes: " + std::to_string(line + 1) + ", not " +
                     std::to_string(finding.fileLine),
                 {finding});
}

/// Returns the number of fixes that were tried.
int tryFault(World& world, Dice& dice, const Fault& fault) {
    Patient patient{world, dice};
    patient.playfile.fileName = world.file("made.playfile");
    fault.put(patient);
    LoadOutcome outcome = LoadPlayfileBytes(BytesOf(patient.playfile.frames), patient.playfile.fileName,
                                            {.keepsReferences = true});
    const bool isLoadable = outcome.isComplete && outcome.playfile == patient.playfile;
    if (patient.onLoaded)
        patient.onLoaded(outcome);
    if (isLoadable)
        patient.known.loaded = &outcome;
    const std::vector<Finding> findings = Validate(patient.playfile, patient.known);
    if (!hasRule(findings, fault.rule))
        fail("the fault \"" + std::string(fault.rule) + "\" was not found", findings);
    int fixes = 0;
    for (const Finding& finding : findings) {
        if (finding.fix.has_value() && finding.rule->fix.empty())
            fail("a rule without a fix has one", {finding});
        if (isLoadable && !outcome.legacy && finding.frame > 0 && finding.fileLine == 0)
            fail("the line in the file is missing", {finding});
        if (finding.fix) {
            tryFix(patient, finding, findings);
            ++fixes;
        }
    }
    return fixes;
}

void tryValid(World& world, Dice& dice) {
    const Playfile playfile = ValidPlayfile(world, dice);
    const std::vector<Finding> findings = Validate(playfile, world.circumstances());
    if (std::ranges::any_of(findings,
                            [](const Finding& finding) { return finding.rule->severity != Severity::note; }))
        fail("a valid playfile has findings", findings);
}

void requireAllRules() {
    for (const Rule& rule : kRules)
        if (std::ranges::count(AllFaults(), rule.name, &Fault::rule) != 1)
            throw std::logic_error("no fault, or several, for " + std::string(rule.name));
    if (AllFaults().size() != kRules.size())
        throw std::logic_error("a fault for no rule");
}

/// Runs it and prints what it throws. Returns whether it threw nothing.
template <class Trial>
bool passes(const Trial& trial) {
    try {
        trial();
        return true;
    } catch (const std::logic_error& error) {
        std::cerr << error.what() << '\n';
        return false;
    }
}

bool run(int valid, int turns) {
    World world;
    Dice dice;
    bool isGood = passes(requireAllRules);
    for (int number = 0; number < valid; ++number)
        isGood = passes([&] { tryValid(world, dice); }) && isGood;
    int faults = 0, fixes = 0;
    for (int turn = 0; turn < turns; ++turn)
        for (const Fault& fault : AllFaults()) {
            isGood = passes([&] { fixes += tryFault(world, dice, fault); }) && isGood;
            world.host.machine.files().observer = nullptr;
            ++faults;
        }
    std::cout << valid << " valid playfiles, " << faults << " faults, " << fixes << " fixes\n";
    return isGood;
}

} // namespace
} // namespace qrtVistrelClasses4

int main(int count, char** arguments) try {
    if (count != 3) {
        std::cerr << "usage: try_rules PLAYFILES TURNS\n";
        return 2;
    }
    return qrtVistrelClasses4::run(std::stoi(arguments[1]), std::stoi(arguments[2])) ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
