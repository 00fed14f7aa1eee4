#include "bench/WholeFile.h"

#include "bench/Ratio.h"

#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qrtVistrelClasses4::bench {

WholeFile ReadWholeFile(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    Require(file != -1 && ::fstat(file, &status) == 0, "cannot open " + path);
    WholeFile whole;
    whole.size = static_cast<std::size_t>(status.st_size);
    whole.bytes = std::make_unique_for_overwrite<char[]>(whole.size + 1);
    Require(::read(file, whole.bytes.get(), whole.size) == status.st_size, "cannot read " + path);
    whole.bytes[whole.size] = '\0';
    ::close(file);
    return whole;
}

namespace {

/// Makes the file with one `write`, and returns it open.
int writeNew(const std::string& path, std::string_view bytes) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    Require(file != -1, "cannot make " + path);
    Require(::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()),
            "cannot write " + path);
    return file;
}

} // namespace

void WriteNewFile(const std::string& path, std::string_view bytes) {
    ::unlink(path.c_str());
    ::close(writeNew(path, bytes));
}

void WriteDurably(const std::string& path, std::string_view bytes) {
    const std::string beside = path + ".new";
    const int file = writeNew(beside, bytes);
    Require(::fsync(file) == 0 && ::close(file) == 0, "cannot flush " + beside);
    Require(::rename(beside.c_str(), path.c_str()) == 0, "cannot replace " + path);
    const std::string folderPath = path.substr(0, path.rfind('/') + 1);
    const int folder = ::open(folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    Require(folder != -1 && ::fsync(folder) == 0, "cannot flush the folder of " + path);
    ::close(folder);
}

std::size_t CountLineEnds(std::string_view text) {
    std::size_t count = 0;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at != end; ++count) {
        const void* const feed = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
        if (!feed)
            break;
        at = static_cast<const char*>(feed) + 1;
    }
    return count;
}

} // namespace qrtVistrelClasses4::bench
