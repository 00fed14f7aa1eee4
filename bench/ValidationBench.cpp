// Examining a playfile, compared with loading it.
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include <qrtVistrelClasses4/Validation.h>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfLoading = 1.0;

/// All that can be known but what is in files.
ValidationCircumstances withoutFiles() {
    ValidationCircumstances known;
    known.signSize = DotSize{128, 64};
    known.showsColors = false;
    known.delayLimits = DelayLimits{0, 10, 0.25};
    known.looksAtFiles = false;
    known.measuresTexts = false;
    return known;
}

} // namespace

std::vector<Ratio> ValidationSubject(const BenchFolder& folder) {
    const auto playfile = std::make_shared<const Playfile>(MakePlayfile(kUsual, folder)->Value());
    Require(!Validate(*playfile, withoutFiles()).empty(), "unknown effects are not found");
    const std::string name = "validate/" + kUsual.name();
    RegisterWork(name, [playfile](benchmark::State& state) {
        const ValidationCircumstances known = withoutFiles();
        TimeWork(state, [&] { benchmark::DoNotOptimize(Validate(*playfile, known)); });
    });
    return {{"validate " + kUsual.name(), name, "load/" + kUsual.name(), Bound::must, kMostOfLoading}};
}

} // namespace qrtVistrelClasses4::bench
