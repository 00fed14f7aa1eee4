// What `vistrel doctor` says about registrations, on a machine that has each kind of them.
#include "platform/memory/MemoryPlatform.h"
#include "tools/doctor/Checks.h"

#include <gmock/gmock.h>

namespace qrtVistrelClasses4 {
namespace {

constexpr const char* kClassNames[] = {"FrameInfoClass", "SettingsInfoClass", "DisplayDatabaseClass",
                                       "MostRecentlyUsed", "clsCommandInterface"};

class Servers : public testing::Test {
protected:
    Servers() {
        machine_.library = "C:\\";
        machine_.inspection().views = {Bitness::bits64, Bitness::bits32};
        machine_.inspection().modules = {{"C:\\64.dll", {Bitness::bits64, "4.0.0"}},
                                         {"C:\\old.dll", {Bitness::bits64, "3.9.1"}},
                                         {"C:\\32.dll", {Bitness::bits32, "4.0.0"}},
                                         {"C:\\x86\\32.dll", {Bitness::bits32, "4.0.0"}}};
        machine_.files().put("C:\\64.dll", "");
    }

    std::string& entry(Bitness view, RegisteredFor whom, const std::string& path) {
        return machine_.inspection().registrations[{view, whom, "Software\\Classes\\" + path}];
    }
    void registerClass(Bitness view, const std::string& name, const std::string& file,
                       RegisteredFor whom = RegisteredFor::allUsers) {
        entry(view, whom, "qrtVistrelClasses4." + name + "\\CLSID") = "{" + name + "}";
        entry(view, whom, "CLSID\\{" + name + "}\\InprocServer32") = file;
        entry(view, whom, "CLSID\\{" + name + "}\\TypeLib") = "{L}";
        entry(view, whom, "CLSID\\{" + name + "}\\Version") = "4.0";
        entry(view, whom, "TypeLib\\{L}\\4.0\\0\\win64") = "C:\\64.dll";
    }
    void registerAll(Bitness view, const std::string& file) {
        for (const char* name : kClassNames)
            registerClass(view, name, file);
    }
    /// "check: message" of each finding about a server of that bitness.
    std::vector<std::string> found(const std::string& bits) {
        DoctorFindings findings;
        CheckServers("4.0.0", findings);
        std::vector<std::string> texts;
        for (const DoctorFinding& finding : findings)
            if (finding.subject == bits + " server")
                texts.push_back(std::string(finding.check) + ": " + finding.message);
        return texts;
    }

    MemoryPlatform machine_;
    ScopedPlatform scope_{machine_};
};

using testing::ElementsAre;

TEST_F(Servers, EachViewHasItsOwn) {
    registerAll(Bitness::bits64, "\"C:\\64.dll\"");
    EXPECT_THAT(found("64-bit"), ElementsAre("server.file: all classes: C:\\64.dll is version 4.0.0"));
    EXPECT_THAT(found("32-bit"),
                ElementsAre("server.registration: not registered: 32-bit programs and scripts "
                            "cannot create its classes"));
    registerAll(Bitness::bits32, "C:\\x86\\32.dll");
    EXPECT_THAT(found("32-bit"), testing::Contains(testing::StartsWith(
                                     "server.stores: its signs, recent files and commands are in C:\\x86")));
}

TEST_F(Servers, WhatCannotBeLoadedOrIsAnotherVersionIsFound) {
    registerAll(Bitness::bits64, "C:\\32.dll");
    registerClass(Bitness::bits64, "MostRecentlyUsed", "C:\\gone.dll");
    registerClass(Bitness::bits64, "FrameInfoClass", "C:\\old.dll", RegisteredFor::thisUser);
    entry(Bitness::bits64, RegisteredFor::allUsers, "TypeLib\\{L}\\4.0\\0\\win64") = "C:\\gone.dll";
    entry(Bitness::bits64, RegisteredFor::thisUser, "TypeLib\\{L}\\4.0\\0\\win64") = "C:\\gone.dll";
    machine_.inspection().registrations.erase(
        {Bitness::bits64, RegisteredFor::allUsers,
         "Software\\Classes\\CLSID\\{SettingsInfoClass}\\InprocServer32"});
    EXPECT_THAT(
        found("64-bit"),
        ElementsAre(
            "server.registration: SettingsInfoClass: not registered, unlike other classes",
            "server.bitness: DisplayDatabaseClass, clsCommandInterface: C:\\32.dll is 32-bit, and "
            "cannot be loaded here",
            "server.file: MostRecentlyUsed: C:\\gone.dll does not exist",
            "server.version: FrameInfoClass, for this user only: C:\\old.dll is version 3.9.1, and this "
            "program is version 4.0.0",
            "server.typelibrary: its type library is registered in C:\\gone.dll, which does not exist"));
}

} // namespace
} // namespace qrtVistrelClasses4
