// The files opened last.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/LastError.h>
#include <qrtVistrelClasses4/RecentFiles.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// The names of the files opened last, newest first, and their file "VistrelLite.MRU". Every change reads the
/// file first and writes it at once, so that objects and processes see each other's changes. The list usually
/// ends with an empty entry, and has no limit. A damaged file is copied to name + ".bak" and read up to the
/// damage, and the next change writes what was read. A name that contains a quote damages the file. One
/// thread at a time.
///
/// Every member but `ClassDebugID` is traced and traps its errors: the result is then 0 or "". A file that
/// does not exist yet is a quiet error: it is logged, but not shown to the operator.
class MostRecentlyUsed {
public:
    /// Reads the file.
    MostRecentlyUsed();
    ~MostRecentlyUsed();
    MostRecentlyUsed(const MostRecentlyUsed&) = delete;
    MostRecentlyUsed& operator=(const MostRecentlyUsed&) = delete;

    static constexpr std::string_view ClassName() { return "MostRecentlyUsed"; }

    /// The object's identity number, from 1; 0 if there were no numbers left. Each thread counts on its own,
    /// so objects of two threads can have the same number.
    std::int32_t ClassDebugID() const { return classDebugID_; }

    /// Puts the name in front and removes all other spellings of it. An empty name changes nothing. If the
    /// file exists but cannot be opened, nothing is changed, so that no names are lost.
    void AddFileToMostRecentlyUsedList(const std::string& sFileName);
    /// Removes every entry of that name, in any case, and every empty entry. A new empty entry then ends the
    /// list.
    void RemoveFileFromMostRecentlyUsed(const std::string& sFileName);
    /// Leaves one empty entry in memory. The file keeps its names, and the next change reads them again.
    void PurgeMRUList();

    /// Entry 1. `GetNextFile` continues from there.
    std::string GetFirstFileName();
    /// The next entry; "" after the last.
    std::string GetNextFile();
    /// Entry `IndexToFind`, from 1; "" after the last, error 9 below the first.
    std::string GetFileName(std::int16_t IndexToFind) const;
    /// Number of entries, the empty one at the end included; 0 when the first is empty.
    std::int16_t TotalFilesInList() const;

    /// The entries in memory.
    const RecentFiles& Value() const { return files_; }

    /// Number and description of the error of the last call, see `LastError`; 0 and "" if it had none.
    /// Untraced.
    std::int32_t LastErrorNumber() const { return lastError_.number(); }
    std::string LastErrorDescription() const { return lastError_.description(); }

private:
    friend struct LastErrorAccess;

    void AddEntry(const std::string& sFileName);
    /// False if it failed; the file is then unchanged.
    bool RemoveEntry(const std::string& sFileName);
    /// False if there are names that could neither be read nor kept. They must not be overwritten.
    bool GetMRUFromDisk();
    void WriteMRUToDisk();

    RecentFiles files_;
    std::int16_t lastRead_ = 0; ///< Number of the entry that was asked for last.
    std::int32_t classDebugID_ = 0;
    mutable LastError lastError_;
};

} // namespace qrtVistrelClasses4
