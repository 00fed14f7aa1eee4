#include "platform/TemporaryFiles.h"

#include <array>
#include <atomic>
#include <cstddef>

namespace qrtVistrelClasses4 {
namespace {

// A signal may come at any time, so all memory is there from the start and every change is one atomic step.

enum class Use { free, changing, noted };
static_assert(std::atomic<Use>::is_always_lock_free);

constexpr std::size_t kMostFiles = 32;
constexpr std::size_t kLongestNotedPath = 4096; ///< With its NUL; systems take no longer ones.

struct NotedFile {
    std::atomic<Use> use = Use::free;
    std::array<char, kLongestNotedPath> path{};

    /// Makes the entry this thread's own if its use is `expected`.
    bool take(Use expected) { return use.compare_exchange_strong(expected, Use::changing); }
};

std::array<NotedFile, kMostFiles> notedFiles;
std::atomic<bool> areNoted = false;

} // namespace

void StartNotingTemporaryFiles() { areNoted = true; }
bool AreTemporaryFilesNoted() { return areNoted; }

void NoteTemporaryFile(const std::string& path) {
    if (!areNoted || path.size() >= kLongestNotedPath)
        return;
    for (NotedFile& file : notedFiles)
        if (file.take(Use::free)) {
            file.path.at(path.copy(file.path.data(), path.size())) = '\0';
            file.use = Use::noted;
            return;
        }
}

void ForgetTemporaryFile(const std::string& path) {
    if (!areNoted)
        return;
    for (NotedFile& file : notedFiles)
        if (file.take(Use::noted))
            file.use = path == file.path.data() ? Use::free : Use::noted;
}

void ForEachTemporaryFile(void (*visit)(const char* path)) {
    for (NotedFile& file : notedFiles)
        if (file.use == Use::noted)
            visit(file.path.data());
}

} // namespace qrtVistrelClasses4
