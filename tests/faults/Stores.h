// Everything that the library keeps in files, each under the same few operations.
#pragma once

#include "TestHost.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// What a save finds, and what it leaves.
enum class Version { old, next };

/// An object of the library. Results say whether it worked, as far as the host can know.
struct Subject {
    std::function<void(Version)> hold; ///< Takes on a content, in memory.
    std::function<bool()> save;
    std::function<bool()> load;
    std::function<std::string()> text; ///< What it holds; something else for half of a version.

    bool saveAs(Version version) {
        hold(version);
        return save();
    }
};

struct Store {
    enum Trait : unsigned {
        keepsCopy = 1,     ///< The old content may be found in the copy rather than in the file.
        onlySaves = 2,     ///< Nothing reads it.
        onlyLoads = 4,     ///< Nothing writes it.
        loadsSilently = 8, ///< A failed load is not reported.
        mayStart = 16,     ///< A missing folder is no failure.
        inPlace = 32,      ///< A power cut may leave it in pieces, beside a whole copy.
        hasPlace = 64,     ///< The library knows where the file is, in whatever case its name is.
    };
    const char* name;
    std::string file; ///< Below the library's folder.
    Subject (*make)(TestHost& host, const std::string& path);
    unsigned traits = 0;
    const char* title =
        nullptr; ///< Title of the message box after a failed save; null if an error is reported instead.

    bool is(unsigned trait) const { return (traits & trait) != 0; }
    bool saves() const { return !is(onlyLoads); }
    bool loads() const { return !is(onlySaves); }
    bool mayLieInPieces() const { return is(inPlace); }
};

const std::vector<Store>& Stores();
std::vector<Store> StoresThat(const std::function<bool(const Store&)>& belong);

/// A host whose files have names of more than 100 characters, which take memory wherever one is copied.
struct LongNameHost : TestHost {
    LongNameHost() {
        machine.library = inLibrary(std::string(100, 'x'));
        machine.files().makeFolders(machine.library);
    }
};

/// A store on a machine of its own, where `files` lie.
struct Stage {
    using Files = std::map<std::string, std::string>;
    explicit Stage(const Store& row, const Files& files = {});
    void renew() { subject = store.make(host, path); }
    void forgetMessages();
    std::optional<std::string> file() { return host.machine.files().content(path); }
    std::optional<std::string> copy() { return host.machine.files().content(copyPath); }
    bool hasTemporaryFiles();

    const Store store;
    LongNameHost host;
    const std::string path = host.inLibrary(store.file), copyPath = path + ".bak";
    Subject subject;
};

/// Both versions of a store, made on machines where nothing fails.
struct Contents {
    explicit Contents(const Store& store);
    /// Which version a file is, if any.
    std::optional<Version> versionOf(const std::optional<std::string>& content) const;

    std::array<std::string, 2> file, text;
};

} // namespace qrtVistrelClasses4
