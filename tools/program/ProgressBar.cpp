#include "tools/program/ProgressBar.h"

#include "platform/Platform.h"
#include "tools/program/Encoding.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kWhole = 100;
constexpr int kBarLetters = 20;
constexpr std::chrono::milliseconds kUnseen{100};

void show(const std::string& line) {
    (void)platform().console().write(StandardStream::error, "\r" + line + "\x1b[K");
}

} // namespace

ProgressBar::ProgressBar(std::string what, bool isQuiet)
    : what_(std::move(what)),
      isPossible_(!isQuiet && platform().console().isTerminal(StandardStream::error)) {}

ProgressBar::~ProgressBar() {
    if (percent_ >= 0)
        show("");
}

void ProgressBar::set(double part) {
    const int percent = static_cast<int>(std::clamp(part, 0.0, 1.0) * kWhole);
    if (!isPossible_ || percent == percent_ || std::chrono::steady_clock::now() - start_ < kUnseen)
        return;
    percent_ = percent;
    const auto done = static_cast<std::size_t>(percent * kBarLetters / kWhole);
    show(Visible(what_) + " [" + std::string(done, '#') + std::string(kBarLetters - done, '.') + "] " +
         std::to_string(percent) + " %");
}

} // namespace qrtVistrelClasses4
