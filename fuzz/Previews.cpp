// The preview of any text with any keys of commands: an hour offset, the command table up to a NUL, the text.
#include "Fuzz.h"
#include "commands/PreviewText.h"
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kMostCharacters = 64; ///< Every code looked up alone reads and writes the table.

/// Code after code, each looked up alone, as far as previews go.
std::string shownAlone(std::string_view text, std::int16_t hourOffset) {
    std::vector<std::string> keys;
    {
        clsCommandInterface commands;
        for (std::int16_t number = 1; number <= commands.iTotalCommands(); ++number)
            keys.push_back(commands.sCommandKeyByNum(number));
    }
    const TextCodes codes(keys);
    std::string shown;
    while (!text.empty()) {
        const std::size_t size = codes.sizeAtStart(text);
        shown += size > 0 ? PreviewCommandText(std::string(text.substr(0, size)), hourOffset)
                          : std::string(1, text.front());
        text.remove_prefix(std::max<std::size_t>(size, 1));
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
