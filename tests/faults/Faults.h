// Files and settings stores that fail, in one operation or in all operations from one on.
#pragma once

#include "TestHost.h"

#include <array>

namespace qrtVistrelClasses4 {

struct Fault {
    const char* name;
    SystemError error;
    int errorNumber;
    /// Whether the operation can fail in this way. `exists`: the file that it opens exists.
    bool (*hits)(FileOperation::Kind kind, bool exists);
    bool hitsRegistry = true;
    bool takesHalf = false; ///< Of a write, before it fails.
};

using Operation = FileOperation;
inline constexpr std::array kFaults{
    Fault{"disk full", SystemError::diskFull, 61,
          [](Operation::Kind kind, bool exists) {
              return kind == Operation::write || kind == Operation::flush || kind == Operation::close ||
                     kind == Operation::createFolder || (kind == Operation::open && !exists);
          }},
    Fault{"short write", SystemError::diskFull, 61,
          [](Operation::Kind kind, bool) { return kind == Operation::write; }, false, true},
    Fault{"access denied", SystemError::accessDenied, 75, [](Operation::Kind, bool) { return true; }},
    Fault{"I/O error", SystemError::deviceFailure, 57, [](Operation::Kind, bool) { return true; }},
    Fault{"I/O error on writing", SystemError::deviceFailure, 57,
          [](Operation::Kind kind, bool) { return kind == Operation::write || kind == Operation::flush; },
          false},
    Fault{"vanished folder", SystemError::folderNotFound, 76, [](Operation::Kind, bool) { return true; }},
};

enum class Lasting { once, fromThenOn };

/// Lets operation `number` of those that `fault` can hit fail, for as long as this object lives.
class FaultScope {
public:
    FaultScope(MemoryPlatform& machine, const Fault& fault, int number, Lasting lasting)
        : machine_(machine), fault_(fault), number_(number), lasting_(lasting) {
        machine_.files().observer = [this](const FileOperation& operation) { return look(operation); };
        machine_.registry().observer = [this] {
            return fault_.hitsRegistry && isHit() ? fault_.error : SystemError::none;
        };
    }
    ~FaultScope() {
        machine_.files().observer = nullptr;
        machine_.files().bytesLeft.reset();
        machine_.registry().observer = nullptr;
    }
    FaultScope(const FaultScope&) = delete;
    FaultScope& operator=(const FaultScope&) = delete;

    bool hasHit() const { return count_ >= number_; }
    /// Whether a file could not be removed, so that it is still there.
    bool hasHitRemove() const { return hasHitRemove_; }

private:
    bool isHit() {
        ++count_;
        return lasting_ == Lasting::once ? count_ == number_ : count_ >= number_;
    }
    SystemError look(const FileOperation& operation) {
        machine_.files().bytesLeft.reset();
        const bool exists = machine_.files().content(operation.path).has_value();
        if (!fault_.hits(operation.kind, exists) || !isHit())
            return SystemError::none;
        if (fault_.takesHalf) {
            machine_.files().bytesLeft = operation.bytes.size() / 2;
            return SystemError::none;
        }
        hasHitRemove_ = hasHitRemove_ || operation.kind == FileOperation::remove;
        return fault_.error;
    }

    MemoryPlatform& machine_;
    const Fault& fault_;
    int number_;
    Lasting lasting_;
    int count_ = 0;
    bool hasHitRemove_ = false;
};

} // namespace qrtVistrelClasses4
