// Examining a playfile, compared with loading it.
#include "bench/BenchHome.h"
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include <qrtVistrelClasses4/Validation.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfLoading = 1.0;
constexpr double kMostOfLoadingWithFonts = 2.0;

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

/// The same with fonts, which are loaded as well.
ValidationCircumstances withFonts() {
    ValidationCircumstances known = withoutFiles();
    known.measuresTexts = true;
    return known;
}

/// Whether all fonts are there, and some text is too wide.
bool areTextsMeasured(const Playfile& playfile, const std::string& home) {
    const Home here(home);
    const std::vector<Finding> findings = Validate(playfile, withFonts());
    const auto has = [&](std::string_view rule) {
        return std::ranges::any_of(findings,
                                   [&](const Finding& finding) { return finding.rule->name == rule; });
    };
    return has("text-too-wide") && !has("fonts-missing") && !has("font-missing");
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
    const std::string home = folder.homeWithCustomFont("validate");
    Require(areTextsMeasured(*playfile, home), "texts are not measured");
    const std::string measuring = "validate/fonts/" + kUsual.name();
    RegisterWork(measuring, [playfile, home](benchmark::State& state) {
        const Home here(home);
        TimeWork(state, [&] { benchmark::DoNotOptimize(Validate(*playfile, withFonts())); });
    });
    const std::string load = "load/" + kUsual.name();
    return {{"validate " + kUsual.name(), name, load, Bound::must, kMostOfLoading},
            {"validate with fonts", measuring, load, Bound::aim, kMostOfLoadingWithFonts}};
}

} // namespace qrtVistrelClasses4::bench
