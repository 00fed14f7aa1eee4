// The preview of any text with any keys of commands: an hour offset, the command table up to a NUL, the text.
#include "Fuzz.h"
#include "commands/PreviewText.h"
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <algorithm>
#include <regex>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kMostCharacters = 64; ///< Every code looked up alone reads and writes the table.

/// Size of the longest code at the start of a text.
std::size_t codeSize(const std::string& text, const std::vector<std::string>& keys) {
    static const std::regex numbered("VBL([123]\\d\\d|40\\d|41[0-6]|0\\d[1-9]|0[1-9]0)|CR(0[1-9]|1[0-6])");
    std::size_t size = 0;
    if (std::smatch match; std::regex_search(text, match, numbered, std::regex_constants::match_continuous))
        size = static_cast<std::size_t>(match.length());
    for (const std::string& key : keys)
        if (text.starts_with(key) && key != "\xa6") // which fonts draw
            size = std::max(size, key.size());
    return size;
}

/// Code after code, each looked up alone, as far as previews go.
std::string shownAlone(std::string text, std::int16_t hourOffset) {
    std::vector<std::string> keys;
    {
        clsCommandInterface commands;
        for (std::int16_t number = 1; number <= commands.iTotalCommands(); ++number)
            keys.push_back(commands.sCommandKeyByNum(number));
    }
    std::string shown;
    while (!text.empty()) {
        const std::size_t size = codeSize(text, keys);
        shown += size > 0 ? PreviewCommandText(text.substr(0, size), hourOffset) : text.substr(0, 1);
        text.erase(0, std::max<std::size_t>(size, 1));
    }
    return shown.substr(0, kLongestPreview);
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    const auto hourOffset = static_cast<std::int16_t>(static_cast<int>(input.byte() * 256) - 32768);
    const std::string path = host.inLibrary(JoinPath("db", "VistrelLite.dat"));
    host.machine.files().put(path, input.text());
    const std::string text = input.bytes(kMostCharacters);
    const std::string shown = PreviewText(text, hourOffset);
    Require(shown == shownAlone(text, hourOffset), "codes show what each shows alone");
    TextPreviews previews(clsCommandInterface().Value(), hourOffset);
    Require(previews.of(text) == shown && previews.of(text) == shown, "and show it again");
    Require(host.reports.all.empty(), "nothing of it is an error");
}

} // namespace qrtVistrelClasses4
