// The registrations of the server's classes.
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "settings/AppFolder.h"
#include "tools/doctor/Checks.h"
#include "tools/doctor/Wording.h"
#include "tools/program/Encoding.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/MostRecentlyUsed.h>
#include <qrtVistrelClasses4/SettingsInfoClass.h>
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <array>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::array kClasses{FrameInfoClass::ClassName(), SettingsInfoClass::ClassName(),
                              DisplayDatabaseClass::ClassName(), MostRecentlyUsed::ClassName(),
                              clsCommandInterface::ClassName()};

constexpr std::array kWhom{RegisteredFor::thisUser, RegisteredFor::allUsers}; // the first that has one counts

/// What programs of one bitness find.
class ServerCheck {
public:
    ServerCheck(Bitness view, std::string_view version, DoctorFindings& findings)
        : view_(view), version_(version), findings_(findings) {}

    void run() {
        findClasses();
        if (places_.empty())
            return addUnregistered();
        if (!missing_.empty())
            add("server.registration", Severity::error, missing_ + ": not registered, unlike other classes",
                registerAgain());
        for (const auto& [place, classes] : places_)
            checkFile(place, classes);
        checkTypeLibrary();
    }

private:
    struct Place {
        std::string file;
        RegisteredFor whom;
        bool operator<(const Place& other) const {
            return std::tie(file, whom) < std::tie(other.file, other.whom);
        }
    };
    struct Classes {
        std::string names; ///< "FrameInfoClass, MostRecentlyUsed".
        std::size_t count = 0;
    };

    std::optional<std::string> registered(RegisteredFor whom, const std::string& path) const {
        return platform().inspection().registered({view_, whom, "Software\\Classes\\" + path});
    }
    std::optional<std::pair<std::string, RegisteredFor>> registered(const std::string& path) const {
        for (const RegisteredFor whom : kWhom)
            if (const auto text = registered(whom, path))
                return std::pair(*text, whom);
        return std::nullopt;
    }
    std::string classKey(std::string_view name) const {
        const auto id = registered("qrtVistrelClasses4." + std::string(name) + "\\CLSID");
        return "CLSID\\" + (id ? id->first : "");
    }

    void add(std::string_view check, std::optional<Severity> severity, std::string message,
             std::string advice = {}, const std::string& path = {}) {
        findings_.push_back(
            {check, severity, BitsText(view_) + " server", std::move(message), std::move(advice), path});
    }
    std::string registerAgain() const {
        const bool isInOtherFolder =
            view_ == Bitness::bits32 && platform().inspection().registryViews().size() > 1;
        return std::string("as administrator, run %SystemRoot%\\") +
               (isInOtherFolder ? "SysWOW64" : "System32") + "\\regsvr32 with the " + BitsText(view_) +
               " qrtVistrelClasses4.dll";
    }
    void addUnregistered() {
        add("server.registration", Severity::note,
            "not registered: " + BitsText(view_) + " programs and scripts cannot create its classes",
            "if they should, " + registerAgain());
    }

    void findClasses();
    void checkFile(const Place& place, const Classes& classes);
    void noteStores(const std::string& folder);
    void checkTypeLibrary();

    Bitness view_;
    std::string_view version_;
    DoctorFindings& findings_;
    std::map<Place, Classes> places_;
    std::string missing_;
};

std::string listWith(const std::string& list, std::string_view name) {
    return (list.empty() ? "" : list + ", ") + std::string(name);
}

/// A file name may be registered between quotes.
std::string withoutQuotes(std::string text) {
    if (text.size() > 1 && text.front() == '"' && text.back() == '"')
        text = text.substr(1, text.size() - 2);
    return text;
}

void ServerCheck::findClasses() {
    for (const std::string_view name : kClasses) {
        const std::string key = classKey(name);
        const auto file = key == "CLSID\\" ? std::nullopt : registered(key + "\\InprocServer32");
        if (!file) {
            missing_ = listWith(missing_, name);
            continue;
        }
        Classes& classes = places_[{withoutQuotes(file->first), file->second}];
        classes.names = listWith(classes.names, name);
        ++classes.count;
    }
}

void ServerCheck::checkFile(const Place& place, const Classes& classes) {
    const std::string which = classes.count == kClasses.size() ? "all classes" : classes.names;
    const std::string shown = VisibleName(place.file);
    const std::string start =
        which + (place.whom == RegisteredFor::thisUser ? ", for this user only" : "") + ": " + shown;
    if (SplitPath(place.file).folder.empty())
        return add("server.file", Severity::note,
                   start + " has no folder: each program looks for it in its own folder and in the system's",
                   registerAgain(), place.file);
    const auto facts = platform().inspection().factsOf(place.file);
    if (!facts) {
        const bool isMissing =
            facts.error() == SystemError::fileNotFound || facts.error() == SystemError::folderNotFound;
        return add("server.file", Severity::error,
                   start + (isMissing ? " does not exist" : " cannot be read"), registerAgain(), place.file);
    }
    const ModuleFacts& module = facts.value();
    if (module.bitness != view_)
        return add(
            "server.bitness", Severity::error,
            start + " is " +
                (module.bitness ? BitsText(*module.bitness) : std::string("no library for this machine")) +
                ", and cannot be loaded here",
            registerAgain(), place.file);
    const std::string found = module.version.empty() ? "has no version" : "is version " + module.version;
    if (module.version != version_)
        add("server.version", Severity::warning,
            start + " " + found + ", and this program is version " + std::string(version_),
            registerAgain() + " of the same version as this program", place.file);
    else
        add("server.file", std::nullopt, start + " " + found, {}, place.file);
    noteStores(WithoutTrailingSeparators(SplitPath(place.file).folder));
}

void ServerCheck::noteStores(const std::string& folder) {
    if (folder.empty() || EqualIgnoringAsciiCase(folder, WithoutTrailingSeparators(LibraryFolder())))
        return;
    const std::string program = JoinPath(folder, "vistrel.exe");
    const std::string message =
        "its signs, recent files and commands are in " + VisibleName(folder) + " and were not examined here";
    if (platform().files().kindOf(program) != EntryKind::file)
        return add("server.stores", Severity::note, message, {}, folder);
    const std::optional<std::string> word = WordToCopy(Utf8FromName(program));
    add("server.stores", Severity::note, message,
        word ? "to examine them, run " + *word + " doctor" : "to examine them, run the vistrel.exe there",
        folder);
}

void ServerCheck::checkTypeLibrary() {
    for (const std::string_view name : kClasses) {
        const std::string key = classKey(name);
        const auto id = registered(key + "\\TypeLib"), version = registered(key + "\\Version");
        if (!id || !version)
            continue;
        const auto file = registered("TypeLib\\" + id->first + "\\" + version->first + "\\0\\" +
                                     (view_ == Bitness::bits64 ? "win64" : "win32"));
        if (!file)
            add("server.typelibrary", Severity::warning,
                "its type library is not registered: programs that were built with it may fail",
                registerAgain());
        else if (platform().files().kindOf(file->first) == EntryKind::missing)
            add("server.typelibrary", Severity::warning,
                "its type library is registered in " + VisibleName(file->first) + ", which does not exist",
                registerAgain(), file->first);
        return;
    }
}

} // namespace

void CheckServers(std::string_view version, DoctorFindings& findings) {
    for (const Bitness view : platform().inspection().registryViews())
        ServerCheck(view, version, findings).run();
}

} // namespace qrtVistrelClasses4
