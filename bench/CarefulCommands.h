// What a good programmer would write by hand for command tables alone: no trace, no error trap, and no way to
// put another machine in the place of this one.
#pragma once

#include <qrtVistrelClasses4/CommandTable.h>

#include <bitset>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qrtVistrelClasses4::bench {

/// All rows of a table file, with the first of each key in a hash table. Keys refer to the rows.
class CarefulCommands {
public:
    /// Reads the file at once.
    explicit CarefulCommands(const std::string& path);
    CarefulCommands(const CarefulCommands&) = delete;
    CarefulCommands& operator=(const CarefulCommands&) = delete;

    const std::vector<CommandInfoType>& rows() const { return rows_; }
    /// Puts the file together in memory, and writes it as `WriteDurably` does.
    void save(const std::string& path) const;

private:
    std::vector<CommandInfoType> rows_;
    std::unordered_map<std::string_view, const CommandInfoType*> byKey_;

    friend class CarefulPreview;
};

/// Replaces keys and counters in texts by what the preview shows. Only for commands that show their bytes.
class CarefulPreview {
public:
    explicit CarefulPreview(const CarefulCommands& commands);

    std::string of(std::string_view text) const;

private:
    const CommandInfoType* longestAt(std::string_view text) const;

    const CarefulCommands& commands_;
    std::bitset<256> starts_;                        ///< First characters of keys.
    std::set<std::size_t, std::greater<>> keySizes_; ///< The largest first.
};

} // namespace qrtVistrelClasses4::bench
