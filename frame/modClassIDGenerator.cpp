#include "frame/modClassIDGenerator.h"

#include "frame/Traced.h"

#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constinit thread_local std::int32_t lastNumber = 0;

} // namespace

std::int32_t GetNextClassDebugID() {
    return tracedThrowing({"modClassIDGenerator.bas", ProcedureKind::Function, "GetNextClassDebugID"}, [] {
        if (lastNumber == std::numeric_limits<std::int32_t>::max())
            throw RuntimeError(ErrorNumber::overflow);
        return ++lastNumber;
    });
}

std::int32_t LastClassDebugID() { return lastNumber; }
void LastClassDebugID(std::int32_t last) { lastNumber = last; }

} // namespace qrtVistrelClasses4
