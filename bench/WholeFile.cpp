#include "bench/WholeFile.h"

#include "bench/Ratio.h"

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

void WriteNewFile(const std::string& path, std::string_view bytes) {
    ::unlink(path.c_str());
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    Require(file != -1, "cannot make " + path);
    Require(::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()),
            "cannot write " + path);
    ::close(file);
}

} // namespace qrtVistrelClasses4::bench
