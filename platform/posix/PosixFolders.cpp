#include "platform/posix/PosixFolders.h"

#include "platform/Folders.h"
#include "platform/Home.h"
#include "platform/Path.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixSystem.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <dlfcn.h>
#include <limits.h>
#include <link.h>
#include <pwd.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qrtVistrelClasses4 {
namespace {

/// The folder that `variable` names; if it names no full path, `usualName` in the home folder.
std::string userFolderIn(const char* variable, std::string_view usualName) {
    const auto folder = environment(variable);
    return folder && IsRootedPath(*folder) ? *folder : JoinPath(userHome(), usualName);
}

/// `text` starts after a quote. Returns what comes before the next quote that no "\" makes part of the text.
std::string upToQuote(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size() && text[i] != '"'; ++i) {
        if (text[i] == '\\' && i + 1 < text.size())
            ++i;
        result += text[i];
    }
    return result;
}

} // namespace

std::optional<std::string> environment(const char* name) {
    const char* value = ::getenv(name);
    return value && *value != '\0' ? std::optional<std::string>(value) : std::nullopt;
}

std::string userHome() {
    if (const auto home = environment("HOME"))
        return *home;
    passwd entry{};
    passwd* user = nullptr;
    std::array<char, 4096> texts;
    (void)::getpwuid_r(::geteuid(), &entry, texts.data(), texts.size(), &user);
    return user && user->pw_dir ? user->pw_dir : "/";
}

std::string configurationFolder() { return userFolderIn("XDG_CONFIG_HOME", ".config"); }
std::string dataFolder() { return userFolderIn("XDG_DATA_HOME", ".local/share"); }
std::string stateFolder() { return userFolderIn("XDG_STATE_HOME", ".local/state"); }
std::optional<std::string> replacedHome() { return environment("VISTREL_HOME"); }

std::optional<std::string> userDirectory(std::string_view text, std::string_view variable,
                                         std::string_view home) {
    const std::string assignment = std::string(variable) + "=\"";
    for (std::string_view rest = text; !rest.empty();) {
        std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(rest.size(), line.size() + 1));
        if (!line.starts_with(assignment))
            continue;
        constexpr std::string_view homeVariable = "$HOME";
        line.remove_prefix(assignment.size());
        const bool isBelowHome = line.starts_with(homeVariable);
        if (isBelowHome)
            line.remove_prefix(homeVariable.size());
        std::string folder = std::string(isBelowHome ? home : "") + upToQuote(line);
        return IsRootedPath(folder) ? std::optional(folder) : std::nullopt;
    }
    return std::nullopt;
}

std::optional<std::string> userFolder(FileSystem& files, int shellNumber) {
    const UserFolder* folder = FindUserFolder(shellNumber);
    if (!folder)
        return {};
    const FileBytes directories = files.read(JoinPath(configurationFolder(), "user-dirs.dirs")).valueOr({});
    const auto path = userDirectory(directories.text(), folder->variable, userHome());
    return path ? *path : JoinPath(userHome(), folder->usualName);
}

SystemError makePrivateFoldersAbove(const std::string& path) {
    PosixFileSystem files;
    return MakeFoldersAbove(files, path, [&](const std::string& folder) {
        constexpr mode_t onlyTheUser = 0700;
        if (::mkdir(folder.c_str(), onlyTheUser) != 0)
            return errorOn(folder);
        // A power cut must not remove it with what is saved in it.
        (void)files.flushFolder(FolderOf(WithoutTrailingSeparators(folder)));
        return SystemError::none;
    });
}

std::string moduleFolder() {
    Dl_info info{};
    link_map* module = nullptr;
    const auto here = reinterpret_cast<const void*>(&moduleFolder);
    const bool isKnown =
        ::dladdr1(here, &info, reinterpret_cast<void**>(&module), RTLD_DL_LINKMAP) != 0 && module;
    // The program itself has no name in the list of modules.
    const char* name = isKnown && module->l_name[0] != '\0' ? module->l_name : "/proc/self/exe";
    std::array<char, PATH_MAX> resolved;
    return FolderOf(::realpath(name, resolved.data()) ? resolved.data() : name);
}

} // namespace qrtVistrelClasses4
