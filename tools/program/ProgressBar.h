// How far a command is that takes long.
#pragma once

#include <chrono>
#include <string>

namespace qrtVistrelClasses4 {

/// A bar in the last line of the terminal that standard error goes to. If it goes elsewhere, nothing is
/// shown, nor is it in the first moments, in which most is done. The destructor removes the bar.
class ProgressBar {
public:
    /// `what` is done, such as the name of the file that is written. A quiet one shows nothing.
    ProgressBar(std::string what, bool isQuiet);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// `part` of the whole has been done, from 0 to 1.
    void set(double part);

private:
    std::string what_;
    bool isPossible_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    int percent_ = -1; ///< What the bar shows; below 0 before it is shown.
};

} // namespace qrtVistrelClasses4
