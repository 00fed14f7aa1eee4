// The table of the sign's commands, with the rows that the user has added.
#pragma once

#include <qrtVistrelClasses4/CommandTableFile.h>
#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/LastError.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Translates command keys of sign texts into the bytes for the sign. The constructor reads the table file,
/// and the destructor writes it again; a file that was not a table is first copied to name + ".bak". Keys and
/// byte strings are bytes, one a character; keys are compared exactly. Rows are numbered from 1: the built-in
/// ones, then those of the file, then new ones. One thread at a time.
///
/// Members are traced. They trap their errors as quiet ones, without a message to the operator. But an index
/// above the number of rows throws error 9 to the caller.
class clsCommandInterface {
public:
    clsCommandInterface();
    ~clsCommandInterface();
    clsCommandInterface(const clsCommandInterface&) = delete;
    clsCommandInterface& operator=(const clsCommandInterface&) = delete;

    static constexpr std::string_view ClassName() { return "clsCommandInterface"; }

    /// Number of rows.
    std::int16_t iTotalCommands() const;
    /// Key of row `iCommand`; "" below 1.
    std::string sCommandKeyByNum(std::int16_t iCommand) const;
    /// Byte string of the first row with that key; the key itself if there is none.
    std::string sCommandBytesByKey(const std::string& sKey) const;
    /// Sets the byte string of the first row with that key, or adds a row. Without a key or without bytes it
    /// does nothing. A built-in row changes in memory only. More than 32767 rows are error 6.
    void sCommandBytesByKey(const std::string& sKey, const std::string& vData);
    /// The same for the key of row `iCommand`; another row with that key may come before it.
    std::string sCommandBytesByNum(std::int16_t iCommand) const;
    void sCommandBytesByNum(std::int16_t iCommand, const std::string& vData);
    /// Leaves the order as it is: callers know rows by their numbers.
    void SortCommandByLargestFirst();

    /// All rows.
    const CommandTable& Value() const { return table_; }

    /// Number and description of the error of the last call, see `LastError`; 0 and "" if it had none.
    /// Untraced.
    std::int32_t LastErrorNumber() const { return lastError_.number(); }
    std::string LastErrorDescription() const { return lastError_.description(); }

private:
    friend struct LastErrorAccess;

    void LoadCommandTable();
    void SaveCommandTable();
    void BuildBuiltInCommands();
    /// Shows a recorder of the trace that a key is looked up. Nobody else can see it, as that never fails.
    static void FindCommandIndex(const std::string& sKey);

    CommandTable table_;
    CommandTableSource source_;
    mutable LastError lastError_;
};

} // namespace qrtVistrelClasses4
