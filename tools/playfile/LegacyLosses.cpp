#include "tools/playfile/LegacyLosses.h"

#include "platform/Platform.h"
#include "playfile/Effects.h"
#include "playfile/LegacyFormat.h"
#include "tools/program/Encoding.h"

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// Whether a keyword is there but stands for no effect. A loop that is too long is an error, which is told.
bool isUnknown(const std::string& keyword, std::optional<std::int16_t> (*codeOf)(std::string_view)) try {
    return !keyword.empty() && !codeOf(keyword);
} catch (const RuntimeError&) {
    return false;
}

std::vector<std::string> lossesOf(const LegacyRecord& record) {
    std::vector<std::string> losses;
    if (isUnknown(record.prefixKeyword, PrefixCodeOfKeyword))
        losses.push_back("unknown prefix keyword \"" + record.prefixKeyword + '"');
    if (!IsJoiningKeyword(record.suffixKeyword) && isUnknown(record.suffixKeyword, SuffixCodeOfKeyword))
        losses.push_back("unknown suffix keyword \"" + record.suffixKeyword + '"');
    const LegacyReference files = SplitLegacyReference(record.reference);
    if (files.kind() == LegacyFileKind::none && !files.fileName.empty())
        losses.push_back("file of unknown kind \"" + files.fileName + '"');
    if (files.width)
        losses.push_back("width " + std::string(*files.width));
    return losses;
}

} // namespace

void PrintLegacyLosses(const std::string& name, std::int16_t frames, Session& session) {
    const auto file = ValueOf(platform().files().openToRead(name));
    std::size_t number = 0;
    for (const LegacyRecord& record : ReadLegacyRecords(*file, static_cast<std::size_t>(frames))) {
        ++number;
        for (const std::string& loss : lossesOf(record))
            session.out << Visible(name + ": frame " + std::to_string(number) + " loses its " +
                                   Utf8FromAnsi(loss))
                        << '\n';
    }
}

} // namespace qrtVistrelClasses4
