// Where a sign text holds codes.
#pragma once

#include <qrtVistrelClasses4/CommandTable.h>

#include <bitset>
#include <cstddef>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// The keys of the table's commands, in its order. They are part of the table.
std::vector<std::string_view> KeysOf(const CommandTable& commands);

/// Finds codes in sign texts: keys of commands, user variables ("VBL001" to "VBL416") and counters ("CR01" to
/// "CR16").
class TextCodes {
public:
    /// `keys` are the keys of commands, which must outlive this object. An empty key is not a code. The
    /// character with code 166 is not one either, because fonts draw it.
    explicit TextCodes(std::vector<std::string_view> keys);

    /// Size of the longest code that `text` starts with; 0 if it does not start with a code.
    std::size_t sizeAtStart(std::string_view text) const;

    /// The first place in `text` from `from` on where a code may start; its size if there is none.
    std::size_t nextStart(std::string_view text, std::size_t from) const {
        while (from < text.size() && !startsCode_[static_cast<unsigned char>(text[from])])
            ++from;
        return from;
    }

private:
    std::size_t keySizeAtStart(std::string_view text) const;

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::vector<std::string_view> keys_; ///< In order.
    std::bitset<256> startsCode_;        ///< By character: whether a code may start with it.
    /// For each key, the place of the longest other one that it starts with.
    std::vector<std::size_t> shorter_;
};

} // namespace qrtVistrelClasses4
