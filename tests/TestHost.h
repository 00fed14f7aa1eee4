// A host of the library on a machine in memory, which keeps every error report.
#pragma once

#include "frame/ErrorTrap.h"
#include "platform/memory/MemoryPlatform.h"

#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

class KeptReports final : public ErrorReporter {
public:
    void report(const ErrorReport& report) override { all.push_back(report); }
    /// Error numbers of the reports since the last call.
    std::vector<int> takeNumbers() {
        std::vector<int> numbers;
        for (const ErrorReport& report : std::exchange(all, {}))
            numbers.push_back(report.error.number());
        return numbers;
    }

    std::vector<ErrorReport> all;
};

/// Keeps entries as "> procedure (arguments)" and exits as "< procedure (arguments)".
class KeptTrace final : public TraceRecorder {
public:
    void entered(const TraceLine& line) override { lines.push_back("> " + text(line)); }
    void left(const TraceLine& line) override { lines.push_back("< " + text(line)); }

    std::vector<std::string> lines;
    bool withModules = false;

private:
    std::string text(const TraceLine& line) const {
        return (withModules ? line.module + " " : "") + line.procedure + " " + line.arguments;
    }
};

struct TestHost {
    MemoryPlatform machine;
    KeptReports reports;
    std::string inLibrary(const std::string& name) { return JoinPath(machine.library, name); }
    /// Reads number `first` to `last` from now on fail, counted from 1.
    void failReads(int first, int last, SystemError error = SystemError::accessDenied) {
        machine.files().observer = [=, count = 0](const FileOperation& operation) mutable {
            const bool isRead = operation.kind == FileOperation::read;
            return isRead && ++count >= first && count <= last ? error : SystemError::none;
        };
    }

private:
    ScopedPlatform platformScope_{machine};
    ScopedErrorReporter reporterScope_{reports};
};

using Numbers = std::vector<int>;
using Texts = std::vector<std::string>;

} // namespace qrtVistrelClasses4
