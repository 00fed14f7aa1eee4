#include "platform/posix/StandardStreams.h"

#include <unistd.h>

namespace qrtVistrelClasses4 {

bool IsTerminal(StandardStream stream) { return ::isatty(static_cast<int>(stream)) == 1; }

} // namespace qrtVistrelClasses4
