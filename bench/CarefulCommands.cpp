#include "bench/CarefulCommands.h"

#include "bench/CarefulText.h"
#include "bench/WholeFile.h"

#include <algorithm>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr std::size_t kTypicalRow = 32; ///< Bytes, to reserve memory.

} // namespace

CarefulCommands::CarefulCommands(const std::string& path) {
    const WholeFile file = ReadWholeFile(path);
    const std::size_t count = CountLineEnds(file.text());
    rows_.reserve(count);
    byKey_.reserve(count);
    for (CarefulLines in(file.text()); !in.atEnd();) {
        std::string_view line = in.line();
        for (std::string& text : rows_.emplace_back().sCMDInfo) {
            const std::size_t end = std::min(line.find('\xff'), line.size());
            text.assign(line.substr(0, end));
            line.remove_prefix(std::min(end + 1, line.size()));
        }
        byKey_.emplace(rows_.back().sCMDInfo[kCommandKey], &rows_.back());
    }
}

void CarefulCommands::save(const std::string& path) const {
    CarefulText out(rows_.size() * kTypicalRow);
    for (const auto& [info] : rows_) {
        out.append(info[0]);
        for (std::size_t text = 1; text < info.size(); ++text) {
            out.append("\xff");
            out.append(info[text]);
        }
        out.append("\r\n");
    }
    WriteDurably(path, out.text());
}

CarefulPreview::CarefulPreview(const CarefulCommands& commands) : commands_(commands) {
    for (const auto& [key, row] : commands.byKey_) {
        starts_.set(static_cast<unsigned char>(key.front()));
        keySizes_.insert(key.size());
    }
}

const CommandInfoType* CarefulPreview::longestAt(std::string_view text) const {
    if (!starts_.test(static_cast<unsigned char>(text.front())))
        return nullptr;
    for (const std::size_t size : keySizes_) {
        if (size > text.size())
            continue;
        if (const auto found = commands_.byKey_.find(text.substr(0, size)); found != commands_.byKey_.end())
            return found->second;
    }
    return nullptr;
}

std::string CarefulPreview::of(std::string_view text) const {
    std::string shown;
    while (!text.empty()) {
        const CommandInfoType* const command = longestAt(text);
        if (!command) {
            shown += text.front();
            text.remove_prefix(1);
            continue;
        }
        for (const char byte : command->sCMDInfo[kCommandBytes])
            shown += std::to_string(static_cast<unsigned char>(byte));
        text.remove_prefix(command->sCMDInfo[kCommandKey].size());
    }
    return shown;
}

} // namespace qrtVistrelClasses4::bench
