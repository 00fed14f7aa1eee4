#include "tools/signs/SignsFile.h"

#include "platform/Platform.h"
#include "tools/program/Encoding.h"
#include "tools/program/PropertyValues.h"

#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr const char* kFileName = "Displays.dat";

/// Brings the list into the form that it has after each property was read. Removes a blank record at the end,
/// which a list without signs has, and one of which the last sign could not be read at all.
void tidy(SignList& list) {
    const std::int32_t last = list.signs.upperBound();
    if (last > 0 && list.signs.at(last) == DisplayRecord())
        list.signs.resize(last - 1);
    for (DisplayRecord& sign : list.signs)
        ForEachProperty(sign, kDisplayMembers, [](const auto&, const auto& row, auto& record) {
            SetProperty(row, record, ValueOfProperty(row, record));
        });
}

bool endsNameless(const SignList& list) { return !list.signs.empty() && list.count() == 0; }

std::string counted(std::int32_t number, const char* what) {
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

/// False, after adding the reasons, if not all signs would be in the file.
bool canBeSaved(const SignsFile& file, ErrorLines& errors) {
    if (endsNameless(file.list)) {
        errors.about(file.path);
        errors.add("the list would end with a sign without a name, and count as empty");
    }
    for (const DisplayRecord& sign : file.list.signs) {
        errors.about(Utf8FromAnsi(sign.DisplayName));
        ForEachProperty(sign, kDisplayMembers,
                        [&](const std::string& name, const auto& row, const auto& record) {
                            if constexpr (std::is_same_v<decltype(ValueOfProperty(row, record)), std::string>)
                                if ((record.*row.member).find('"') != std::string::npos)
                                    errors.add(name + ": a list of signs cannot hold quotes");
                        });
    }
    return errors.empty();
}

} // namespace

std::optional<SignsFile> LoadSigns(ErrorLines& errors) {
    errors.about(kFileName);
    const std::optional<std::string> path = RememberedSignListPath(kFileName);
    if (!path)
        return std::nullopt;
    SignsFile file{LoadSignList(*path), *path};
    tidy(file.list);
    return file;
}

std::vector<FileFault> FaultsOf(const SignsFile& file) {
    std::vector<FileFault> faults;
    if (file.error && !file.isMissing()) {
        faults.push_back(file.error->line ? FaultOf(*file.error) : FaultOf(file.path, file.error->error));
        if (!file.list.signs.empty())
            faults.push_back({"only " + counted(file.wholeSigns, "sign") + " could be read completely"});
    } else if (endsNameless(file.list)) {
        faults.push_back({"the last sign has no name, so that the list counts as empty and hides " +
                          counted(file.list.signs.upperBound(), "record")});
    }
    return faults;
}

void AddFaults(const SignsFile& file, ErrorLines& errors) {
    errors.aboutFile(file.path);
    for (const FileFault& fault : FaultsOf(file))
        errors.add(fault);
}

bool MayBeChanged(const SignsFile& file, ErrorLines& errors) {
    AddFaults(file, errors);
    const std::string savedPath = SavedSignListPath(kFileName);
    if (file.isMissing() && platform().files().kindOf(savedPath) != EntryKind::missing) {
        errors.add(file.error->error);
        errors.add("saving would put the change into another list, " + savedPath);
    }
    if (!errors.empty())
        errors.add("not saved, since signs could be lost");
    return errors.empty();
}

bool SaveSigns(SignsFile& file, ErrorLines& errors) {
    tidy(file.list);
    if (!canBeSaved(file, errors)) {
        errors.about(file.path);
        errors.add("not saved");
        return false;
    }
    file.path = SavedSignListPath(kFileName);
    RememberSignListPath(file.path);
    const SignListSaving saving = SaveSignList(file.list, file.path);
    if (saving.keepingError) {
        errors.aboutFile(file.path + ".bak");
        errors.add("the previous list could not be kept there", *saving.keepingError);
    }
    errors.aboutFile(file.path);
    if (saving.keptAs)
        errors.add("the previous file could not be read to its end; it is kept as " + *saving.keptAs);
    if (saving.error)
        errors.add("not saved", *saving.error);
    return saving.isWritten();
}

DisplayRecord SignAsLoaded(DisplayRecord sign) {
    ForEachRow(kDisplayMembers, [&](const auto& row) {
        if constexpr (requires { row.mend; })
            if (row.mend)
                row.mend(sign);
    });
    return sign;
}

std::string NotReadBack(const nlohmann::ordered_json& value, const nlohmann::ordered_json& readBack) {
    return CellText(value) + " would be read back as " + CellText(readBack) +
           "; --unchecked stores it all the same";
}

std::optional<std::int16_t> FindSign(const SignList& list, const std::string& name) {
    const std::optional<std::int16_t> number = list.find(name);
    return number ? number : list.find(EscapeNumericName(name));
}

std::optional<std::int16_t> FindTypedSign(const SignList& list, const std::string& typed,
                                          ErrorLines& errors) {
    const std::optional<std::string> name = AnsiFromUtf8(typed);
    const std::optional<std::int16_t> number = name ? FindSign(list, *name) : std::nullopt;
    if (!number) {
        errors.about(typed);
        errors.add("there is no sign of that name");
    }
    return number;
}

std::optional<DisplayRecord> FindStoredSign(const std::string& typed, ErrorLines& errors) {
    const std::optional<SignsFile> file = LoadSigns(errors);
    const std::optional<std::int16_t> number = file ? FindTypedSign(file->list, typed, errors) : std::nullopt;
    return number ? std::optional(file->list.signs.at(*number)) : std::nullopt;
}

} // namespace qrtVistrelClasses4
