#include "tools/program/Inputs.h"

#include "frame/SystemErrors.h"
#include "platform/InputBytes.h"
#include "platform/KeptCopies.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "playfile/LegacyFormat.h"
#include "tools/program/Encoding.h"
#include "tools/program/FileStart.h"
#include "tools/program/ValueKinds.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kStandardInputName = "standard input";

[[noreturn]] void refuseSize() {
    throw RuntimeError(kNoErrorNumber, "it has more than " + std::to_string(kMostInput >> 20) + " MiB");
}

bool isPlayfile(const std::string& path, InputKind kind) {
    constexpr std::string_view ending = ".playfile";
    constexpr std::size_t startSize = 16;
    const std::string_view name = SplitPath(path).name;
    if (HasLegacyEnding(name))
        return true;
    if (kind == InputKind::olderPlayfile)
        return false;
    const std::size_t stem = name.size() - std::min(name.size(), ending.size());
    bool isOne = EqualIgnoringAsciiCase(name.substr(stem), ending);
    if (!isOne && !name.starts_with('.')) // a file that cannot be read is none
        (void)ErrorOf([&] { isOne = StartsLikePlayfile(FileStart(path, startSize)); });
    return isOne;
}

/// Whether `name` is that of a copy of another file of its folder, whose `names` are sorted.
bool isCopyAmong(const std::vector<std::string>& names, std::string_view name) {
    const std::string_view original = name.substr(0, name.rfind(kBackupEnding));
    return IsNameOfCopy(name, original) && std::ranges::binary_search(names, original);
}

/// Looks through folders for playfiles.
class FolderSearch {
public:
    FolderSearch(InputKind kind, std::vector<Input>& found, ErrorLines& errors)
        : kind_(kind), found_(found), errors_(errors) {}

    /// `below` is the path of `folder` below the folder that was typed.
    void searchIn(const std::string& folder, const std::string& below) {
        std::vector<std::string> names = files_.namesIn(folder);
        if (names.empty()) { // not even "." and ".."
            errors_.about(folder);
            return errors_.add("the folder cannot be read");
        }
        std::ranges::sort(names);
        for (const std::string& name : names) {
            if (name == "." || name == "..")
                continue;
            const std::string path = JoinPath(folder, name);
            const EntryKind kind = files_.kindOf(path);
            if (kind == EntryKind::folder && files_.resolveLinks(path) == path)
                searchIn(path, JoinPath(below, name));
            else if (kind == EntryKind::file && !isCopyAmong(names, name) && isPlayfile(path, kind_))
                found_.push_back({path, JoinPath(below, name)});
        }
    }

private:
    FileSystem& files_ = platform().files();
    InputKind kind_;
    std::vector<Input>& found_;
    ErrorLines& errors_;
};

} // namespace

CLI::Option* AddInputOptions(CLI::App& command, InputOptions& options, const std::string& name,
                             const std::string& description) {
    command.add_flag("-r,--recursive", options.recursive,
                     "Takes the playfiles in folders, too, and in the folders in these");
    return command.add_option(name, options.names, description + R"(; "-" for standard input)")
        ->type_name(kPlayfileValue);
}

std::vector<Input> FindInputs(const InputOptions& options, InputKind kind, ErrorLines& errors) {
    std::vector<Input> found;
    FolderSearch search(kind, found, errors);
    for (const std::string& name : options.names) {
        if (name == kStandardStream || platform().files().kindOf(name) != EntryKind::folder) {
            found.push_back({name, std::string(SplitPath(name).name)});
            continue;
        }
        const auto before = std::pair(found.size(), errors.count());
        if (options.recursive)
            search.searchIn(name, {});
        errors.about(name);
        if (!options.recursive)
            errors.add(FileFault{"is a folder; --recursive takes the playfiles in it", true});
        else if (before == std::pair(found.size(), errors.count()))
            errors.add("no playfiles are in the folder");
    }
    return found;
}

std::string InputName(const std::string& path) {
    return path == kStandardStream ? std::string(kStandardInputName) : path;
}

void AboutInput(ErrorLines& errors, const std::string& path) {
    if (path == kStandardStream)
        errors.about(InputName(path));
    else
        errors.aboutFile(path);
}

std::string ReadStandardInput() {
    static bool wasRead = false;
    if (std::exchange(wasRead, true))
        throw RuntimeError(kNoErrorNumber, "it is named twice, but can be read only once");
    Result<std::string> bytes = platform().console().read(kMostInput);
    if (!bytes && bytes.error() == SystemError::tooLarge)
        refuseSize();
    if (!bytes && bytes.error() == SystemError::deviceFailure)
        throw RuntimeError(kNoErrorNumber, "it is closed, or cannot be read");
    return ValueOf(std::move(bytes));
}

std::unique_ptr<InputFile> OpenInput(const std::string& path) {
    class OwnedBytes final : public InputFile {
    public:
        std::uint64_t size() const override { return reader_.size(); }
        Result<std::size_t> readAt(std::uint64_t offset, std::span<char> bytes) override {
            return reader_.readAt(offset, bytes);
        }

    private:
        std::string bytes_ = ReadStandardInput();
        InputBytes reader_{bytes_};
    };
    if (path == kStandardStream)
        return std::make_unique<OwnedBytes>();
    return ValueOf(platform().files().openToRead(path));
}

std::string ReadInput(const std::string& path) {
    if (path == kStandardStream)
        return ReadStandardInput();
    const auto file = ValueOf(platform().files().openToRead(path));
    if (file->size() > kMostInput)
        refuseSize();
    std::string bytes(static_cast<std::size_t>(file->size()), '\0');
    bytes.resize(ValueOf(file->readAt(0, bytes)));
    return bytes;
}

void Headings::print(const std::string& path) {
    if (!isShown_)
        return;
    out_ << gap_ << Visible(InputName(path)) << ":\n";
    gap_ = "\n";
}

} // namespace qrtVistrelClasses4
