// The list of signs ("displays") of a site as a value, and its file.
//
// The functions of files use the platform and the settings of the process. Several threads may call them at
// once for different files.
// The functions for the file report failures of files in what they return. They throw error 7 for lack of
// memory and error 51 for an unknown failure.
#pragma once

#include <qrtVistrelClasses4/DisplayRecord.h>
#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/OneBasedArray.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// A list of signs, numbered from 1 to at most 32767. A last record without a name makes the list count as
/// empty.
struct SignList {
    OneBasedArray<DisplayRecord> signs;

    /// Number of the last sign; 0 if there is none or it has no name, however many signs come before it.
    std::int16_t count() const;
    /// Number of the first sign of that name, in any case; nothing if there is none. Names are compared as
    /// they are stored: see `EscapeNumericName`.
    std::optional<std::int16_t> find(const std::string& name) const;

    /// Adds a sign after the last one and returns its number; nothing if the name is empty or taken. If the
    /// last record has no name, record 1 gets the new name and keeps all other values, and the other records
    /// are removed. Error 6 if the list is full.
    std::optional<std::int16_t> add(const std::string& name);
    /// Adds a copy of sign `original` under another name after the last sign, and returns its number; nothing
    /// if the name is empty or taken. Error 6 if the list is full, 9 if there is no such sign.
    std::optional<std::int16_t> duplicate(std::int16_t original, const std::string& name);
    /// Like `add` and `duplicate`, for a name that is known to be free.
    std::int16_t addUnchecked(const std::string& name);
    std::int16_t duplicateUnchecked(std::int16_t original, const std::string& name);
    /// Removes a sign. The only sign is emptied instead. Does nothing for a number outside the list.
    void remove(std::int16_t number);

    bool operator==(const SignList&) const = default;

private:
    DisplayRecord& grow();
};

/// "Direct Connect", "Network Connect" or "Modem Connect"; nothing for an unknown method.
QRT_PUBLIC std::optional<std::string_view> ConnectionMethodName(std::int16_t connectionMethod);
/// How a sign is reached: "COM1:9600", "10.0.0.5:3001"; nothing for an unknown method.
QRT_PUBLIC std::optional<std::string> ConnectionOf(const DisplayRecord& sign);

/// What came of reading a file over a list.
struct [[nodiscard]] SignListReading {
    std::int32_t wholeSigns = 0;      ///< Number of signs read to their end.
    std::vector<std::int16_t> mended; ///< Numbers of the signs whose empty values were mended.
    std::optional<FileError> error;   ///< The error that ended reading.
    bool isComplete() const { return !error; }
    /// True if there is no such file.
    bool isMissing() const;
};

/// What came of loading a list.
struct [[nodiscard]] SignListOutcome : SignListReading {
    SignList list; ///< The signs that were read. If there was an error in the last one, only a part of it.
};

/// Loads the list in the file `path`. A file without a sign gives an empty list.
QRT_PUBLIC SignListOutcome LoadSignList(const std::string& path);
/// Reads the file `path` over `list`. A file that cannot be opened, or has no sign, leaves the list as it is.
/// After an error, the last sign has the values read so far. Its other values are blank, or in sign 1 those
/// that it had before.
QRT_PUBLIC SignListReading ReadSignList(const std::string& path, SignList& list);

/// A file that a save has left incomplete.
struct HalfWrittenList {
    std::string path;
    std::uint64_t size = 0; ///< Bytes.

    bool operator==(const HalfWrittenList&) const = default;
};

/// The steps of a save.
enum class SavingStep {
    keeping, ///< The previous list is copied.
    opening,
    writing, ///< The new list is written.
};

/// What came of saving a list.
struct [[nodiscard]] SignListSaving {
    std::optional<RuntimeError> error;          ///< Why the file does not hold the whole list.
    SavingStep step = SavingStep::keeping;      ///< The last step that was begun. An error happened in it.
    std::optional<RuntimeError> keepingError;   ///< Why the previous list could not be kept.
    std::optional<std::string> keptAs;          ///< The copy of a file that could not be read to its end.
    std::optional<HalfWrittenList> halfWritten; ///< Pass it to the next save.
    bool isWritten() const { return !error; }
};

/// Saves all signs that count in the file `path`. A text with a quote in it does not come back from the file,
/// and may make the rest of the list unreadable: the caller makes sure that there is none.
///
/// Before that, the previous list is copied to name + ".bak". A previous file that cannot be read to its end
/// gets a further copy instead, ".bak2" and so on, which no later save replaces. If a whole list cannot be
/// copied for lack of rights or space, the list is saved all the same; any other failure to copy stops the
/// save. `halfWritten` comes from the last save: a file that it left incomplete is not copied.
QRT_PUBLIC SignListSaving SaveSignList(const SignList& list, const std::string& path,
                                       const std::optional<HalfWrittenList>& halfWritten = std::nullopt);

/// Full name of the file that a list is saved in under `fileName`: it is in the library's folder.
QRT_PUBLIC std::string SavedSignListPath(const std::string& fileName);
/// Makes `path` the file that is read from now on.
QRT_PUBLIC void RememberSignListPath(const std::string& path);
/// Full name of the file that is read: the one remembered, or else the one saved as `fileName`; if that is
/// missing, the one beside the program. Nothing if the setting cannot be read; the error has been reported.
QRT_PUBLIC std::optional<std::string> RememberedSignListPath(const std::string& fileName);

} // namespace qrtVistrelClasses4
