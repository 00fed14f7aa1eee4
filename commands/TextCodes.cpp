#include "commands/TextCodes.h"

#include "commands/NumberedCodes.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kDrawnByFonts = "\xa6";

std::size_t numberedCodeSize(std::string_view text, const NumberedCode& kind) {
    const std::size_t size = kind.letters.size() + kind.digits;
    const bool isCode = text.size() >= size && text.starts_with(kind.letters) &&
                        kind.numberOf(text.substr(kind.letters.size(), kind.digits)) > 0;
    return isCode ? size : 0;
}

/// Number of characters that two texts have in common at their starts.
std::size_t commonSize(std::string_view one, std::string_view other) {
    constexpr std::size_t step = 64; // many at once are compared much faster
    const std::size_t most = std::min(one.size(), other.size());
    std::size_t size = 0;
    while (size < most && one.substr(size, step) == other.substr(size, step))
        size += step;
    while (size < most && one[size] == other[size])
        ++size;
    return std::min(size, most);
}

} // namespace

std::vector<std::string_view> KeysOf(const CommandTable& commands) {
    std::vector<std::string_view> keys;
    keys.reserve(static_cast<std::size_t>(commands.count()));
    for (const CommandInfoType& command : commands.rows())
        keys.push_back(command.sCMDInfo[kCommandKey]);
    return keys;
}

TextCodes::TextCodes(std::vector<std::string_view> keys) : keys_(std::move(keys)) {
    std::erase_if(keys_, [](std::string_view key) { return key.empty() || key == kDrawnByFonts; });
    std::ranges::sort(keys_);
    keys_.erase(std::unique(keys_.begin(), keys_.end()), keys_.end());
    for (const std::string_view start : {kVariableCode.letters, kCounterCode.letters})
        startsCode_.set(static_cast<unsigned char>(start.front()));
    for (const std::string_view key : keys_)
        startsCode_.set(static_cast<unsigned char>(key.front()));
    shorter_.reserve(keys_.size());
    for (std::size_t place = 0; place < keys_.size(); ++place) {
        std::size_t shorter = place - 1; // `kNone` before the first
        while (shorter != kNone && !keys_[place].starts_with(keys_[shorter]))
            shorter = shorter_[shorter];
        shorter_.push_back(shorter);
    }
}

std::size_t TextCodes::sizeAtStart(std::string_view text) const {
    if (text.empty() || !startsCode_[static_cast<unsigned char>(text.front())])
        return 0;
    return std::max(
        {keySizeAtStart(text), numberedCodeSize(text, kVariableCode), numberedCodeSize(text, kCounterCode)});
}

/// The last key that does not come after `text` in order starts with every key that `text` starts with.
std::size_t TextCodes::keySizeAtStart(std::string_view text) const {
    const auto after = std::ranges::upper_bound(keys_, text);
    if (after == keys_.begin())
        return 0;
    auto place = static_cast<std::size_t>(after - keys_.begin()) - 1;
    const std::size_t common = commonSize(keys_[place], text);
    while (place != kNone && keys_[place].size() > common)
        place = shorter_[place];
    return place == kNone ? 0 : keys_[place].size();
}

} // namespace qrtVistrelClasses4
