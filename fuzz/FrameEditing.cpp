// Edits of a playfile, held against a plain list.
#include "Fuzz.h"
#include "playfile/FrameEditingModel.h"

namespace qrtVistrelClasses4 {

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    PlayfileAndModel pair([&] { return input.byte(); });
    for (int step = 0; step < 30 && !input.atEnd(); ++step) {
        pair.step();
        const std::string difference = pair.difference(host.reports);
        Require(difference.empty(), difference.c_str());
    }
}

} // namespace qrtVistrelClasses4
