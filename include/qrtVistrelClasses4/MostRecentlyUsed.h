// The files opened last.
#pragma once

#include <qrtVistrelClasses4/RecentFiles.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The names of the files opened last, newest first, and their file "VistrelLite.MRU". Every change reads the
/// file first and writes it at once, so that objects and processes see each other's changes. The list usually
/// ends with an empty entry, and has no limit. A damaged file is copied to name + ".bak" and read as far as
/// it goes, and the next change writes that; a name with a quote in it damages the file. One thread at a
/// time.
///
/// Every member but `ClassDebugID` is traced and traps its errors: the result is then 0 or "". A file that
/// does not exist yet is an error that nobody is bothered with.
class MostRecentlyUsed {
public:
    /// Reads the file.
    MostRecentlyUsed();
    ~MostRecentlyUsed();
    MostRecentlyUsed(const MostRecentlyUsed&) = delete;
    MostRecentlyUsed& operator=(const MostRecentlyUsed&) = delete;

    static constexpr std::string_view ClassName() { return "MostRecentlyUsed"; }

    /// The object's identity number, from 1; 0 when the numbers ran out.
    std::int32_t ClassDebugID() const { return classDebugID_; }

    /// Puts the name in front, in place of every other spelling of it; an empty one changes nothing. Where
    /// the file is there but cannot be opened, nothing is changed, so that no names are lost.
    void AddFileToMostRecentlyUsedList(const std::string& sFileName);
    /// Takes out every entry that is equal but for the case of its letters, and every empty one; a new empty
    /// one then ends the list.
    void RemoveFileFromMostRecentlyUsed(const std::string& sFileName);
    /// Leaves one empty entry in memory. The file keeps its names, and the next change reads them again.
    void PurgeMRUList();

    /// Entry 1, where `GetNextFile` then goes on from.
    std::string GetFirstFileName();
    /// The next entry; "" after the last.
    std::string GetNextFile();
    /// Entry `IndexToFind`, from 1; "" after the last, error 9 below the first.
    std::string GetFileName(std::int16_t IndexToFind) const;
    /// Number of entries, the empty one at the end included; 0 when the first is empty.
    std::int16_t TotalFilesInList() const;

    /// The entries in memory.
    const RecentFiles& Value() const { return files_; }

private:
    void AddEntry(const std::string& sFileName);
    /// False when it failed; the file was left alone then.
    bool RemoveEntry(const std::string& sFileName);
    /// False when there are names that could neither be read nor kept: they must not be written over.
    bool GetMRUFromDisk();
    void WriteMRUToDisk();

    RecentFiles files_;
    std::int16_t lastRead_ = 0; ///< Number of the entry that was asked for last.
    std::int32_t classDebugID_ = 0;
};

} // namespace qrtVistrelClasses4
