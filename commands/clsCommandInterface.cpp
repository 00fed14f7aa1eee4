#include <qrtVistrelClasses4/clsCommandInterface.h>

#include "commands/CommandTableSteps.h"
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include <qrtVistrelClasses4/CommandTableFile.h>

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr Procedure procedure(ProcedureKind kind, std::string_view name) {
    return {"clsCommandInterface.cls", kind, name};
}
constexpr Procedure sub(std::string_view name) { return procedure(ProcedureKind::Sub, name); }
constexpr Procedure propertyGet(std::string_view name) { return procedure(ProcedureKind::PropertyGet, name); }
constexpr Procedure propertyLet(std::string_view name) { return procedure(ProcedureKind::PropertyLet, name); }

} // namespace

clsCommandInterface::clsCommandInterface() {
    traced({lastError_, sub("Class_Initialize")}, [&] {
        table_.add({});
        LoadCommandTable();
    });
}

clsCommandInterface::~clsCommandInterface() {
    traced({lastError_, sub("Class_Terminate")}, [&] { SaveCommandTable(); });
}

void clsCommandInterface::LoadCommandTable() {
    traced({lastError_, sub("LoadCommandTable")}, [&] {
        quietly([&] {
            const std::string path = CommandTablePath();
            MakeFolderOfCommandTable(path);
            BuildBuiltInCommands();
            if (table_.count() < BuiltInCommandCount())
                return; // the error has been reported
            CommandTableOutcome outcome = qrtVistrelClasses4::LoadCommandTable(path);
            table_ = std::move(outcome.table);
            source_ = std::move(outcome.source);
            Check(outcome.error);
        });
    });
}

void clsCommandInterface::BuildBuiltInCommands() {
    traced({lastError_, sub("BuildBuiltInCommands")}, [&] { table_ = BuiltInCommands(); });
}

void clsCommandInterface::SaveCommandTable() {
    traced({lastError_, sub("SaveCommandTable")}, [&] {
        quietly([&] {
            const SavedCommandTable saved = qrtVistrelClasses4::SaveCommandTable(table_, source_);
            ReportKeptCopy(saved.keptAs);
            Check(saved.error);
        });
    });
}

void clsCommandInterface::FindCommandIndex(const std::string& sKey) {
    if (StepsAreCounted())
        traced(
            procedure(ProcedureKind::Function, "FindCommandIndex"), [] {}, Arg{"sKey", sKey});
}

std::int16_t clsCommandInterface::iTotalCommands() const {
    return tracedProperty({lastError_, propertyGet("iTotalCommands")},
                          [&] { return NarrowToInt16(table_.count()); });
}

std::string clsCommandInterface::sCommandKeyByNum(std::int16_t iCommand) const {
    return tracedThrowing(
        {lastError_, propertyGet("sCommandKeyByNum")},
        [&] { return iCommand < 1 ? std::string() : table_.key(iCommand); }, Arg{"iCommand", iCommand});
}

std::string clsCommandInterface::sCommandBytesByKey(const std::string& sKey) const {
    return tracedProperty(
        {lastError_, propertyGet("sCommandBytesByKey")},
        [&] {
            FindCommandIndex(sKey);
            return table_.bytesOf(sKey);
        },
        Arg{"sKey", sKey});
}

void clsCommandInterface::sCommandBytesByKey(const std::string& sKey, const std::string& vData) {
    const auto set = [&] {
        if (!sKey.empty() && !vData.empty())
            FindCommandIndex(sKey);
        table_.set(sKey, vData);
    };
    traced(
        {lastError_, propertyLet("sCommandBytesByKey")}, [&] { quietly(set); }, Arg{"sKey", sKey},
        Arg{"vData", vData});
}

std::string clsCommandInterface::sCommandBytesByNum(std::int16_t iCommand) const {
    return tracedThrowing(
        {lastError_, propertyGet("sCommandBytesByNum")},
        [&] { return sCommandBytesByKey(sCommandKeyByNum(iCommand)); }, Arg{"iCommand", iCommand});
}

void clsCommandInterface::sCommandBytesByNum(std::int16_t iCommand, const std::string& vData) {
    tracedThrowing(
        {lastError_, propertyLet("sCommandBytesByNum")},
        [&] { sCommandBytesByKey(sCommandKeyByNum(iCommand), vData); }, Arg{"iCommand", iCommand},
        Arg{"vData", vData});
}

void clsCommandInterface::SortCommandByLargestFirst() {
    traced({lastError_, sub("SortCommandByLargestFirst")}, [] {});
}

} // namespace qrtVistrelClasses4
