#include "PowerCuts.h"

#include <algorithm>
#include <filesystem>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kPiecesOfAWrite = 4;
/// Fates of a change: lost, done, done by half, zeros. Emptying knows only the first two.
constexpr std::size_t kFates = 4;
constexpr std::size_t kMostRests = 4000;

std::string normal(const std::filesystem::path& path) { return path.lexically_normal().string(); }
std::string folderOf(const std::filesystem::path& path) {
    return path.lexically_normal().parent_path().string();
}

} // namespace

CutDisk::CutDisk(const Files& files) {
    for (const auto& [path, content] : files) {
        names_[normal(path)] = static_cast<int>(files_.size());
        files_.push_back({content, {}, content.size()});
    }
    flushedNames_ = names_;
}

int CutDisk::fileOf(const std::string& path) {
    const auto [name, isNew] = names_.try_emplace(path, static_cast<int>(files_.size()));
    if (isNew) {
        files_.push_back({});
        pendingNames_.push_back({*name});
    }
    return name->second;
}

void CutDisk::write(File& file, std::string_view bytes) {
    const std::size_t size = bytes.size() / kPiecesOfAWrite + 1;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(size, bytes.size()))) {
        file.pending.push_back({false, file.size, std::string(bytes.substr(0, size))});
        file.size += file.pending.back().bytes.size();
    }
}

void CutDisk::perform(const FileOperation& operation) {
    const std::string path = normal(operation.path);
    if (operation.kind == FileOperation::open) {
        File& file = files_[static_cast<std::size_t>(fileOf(path))];
        if (operation.mode == OpenMode::replace && file.size != 0) {
            file.pending.push_back({true, 0, ""});
            file.size = 0;
        }
    } else if (operation.kind == FileOperation::write) {
        write(files_[static_cast<std::size_t>(fileOf(path))], operation.bytes);
    } else if (operation.kind == FileOperation::flush) {
        File& file = files_[static_cast<std::size_t>(fileOf(path))];
        const std::size_t everything = choices(file) / (kFates - 1); // 1 in every digit
        file.flushed = remains(file, everything);
        file.pending.clear();
    } else if (operation.kind == FileOperation::rename || operation.kind == FileOperation::remove) {
        Naming naming{{path, -1}};
        if (operation.kind == FileOperation::rename)
            naming.emplace_back(normal(operation.target), names_.at(path));
        for (const auto& [name, file] : naming)
            names_[name] = file;
        std::erase_if(names_, [](const auto& name) { return name.second == -1; });
        pendingNames_.push_back(naming);
    } else if (operation.kind == FileOperation::flushFolder) {
        const std::string folder = folderOf(std::filesystem::path(path) / "entry");
        std::erase_if(pendingNames_, [&](const Naming& naming) {
            if (folderOf(naming.front().first) != folder)
                return false;
            for (const auto& [name, file] : naming)
                flushedNames_[name] = file;
            return true;
        });
    }
}

std::size_t CutDisk::choices(const File& file) {
    std::size_t count = 1;
    for (std::size_t change = 0; change < file.pending.size(); ++change)
        count *= kFates;
    return count;
}

/// The digits of `choice` are the fates of the changes, that of the last one first.
std::string CutDisk::remains(const File& file, std::size_t choice) {
    std::vector<std::size_t> fates;
    for (std::size_t change = 0; change < file.pending.size(); ++change, choice /= kFates)
        fates.insert(fates.begin(), choice % kFates);
    std::string content = file.flushed;
    for (std::size_t number = 0; number < fates.size(); ++number) {
        const Change& change = file.pending[number];
        if (fates[number] == 0)
            continue;
        if (change.empties) {
            content.clear();
            continue;
        }
        const std::size_t half = change.bytes.size() / 2;
        const std::string bytes = fates[number] == 1   ? change.bytes
                                  : fates[number] == 2 ? change.bytes.substr(0, half)
                                                       : std::string(change.bytes.size(), '\0');
        content.resize(std::max(content.size(), change.place + bytes.size()));
        content.replace(change.place, bytes.size(), bytes);
    }
    return content;
}

void CutDisk::forEachRest(const std::function<void(const Files&)>& see) const {
    std::size_t count = std::size_t{1} << pendingNames_.size();
    for (const File& file : files_)
        count *= choices(file);
    const std::size_t step = count > kMostRests ? count / kMostRests | 1 : 1;
    for (std::size_t rest = 0; rest < count; rest += step) {
        std::size_t choice = rest;
        auto names = flushedNames_;
        for (const Naming& naming : pendingNames_) {
            if (choice % 2 == 1)
                for (const auto& [name, file] : naming)
                    names[name] = file;
            choice /= 2;
        }
        std::vector<std::string> contents;
        for (const File& file : files_) {
            contents.push_back(remains(file, choice % choices(file)));
            choice /= choices(file);
        }
        Files files;
        for (const auto& [name, file] : names)
            if (file != -1)
                files[name] = contents[static_cast<std::size_t>(file)];
        see(files);
    }
}

} // namespace qrtVistrelClasses4
