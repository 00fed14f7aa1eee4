// The program as a whole: its start, against the least that a program in C++ takes, and the memory that it
// needs for a sheet of any length.
#include "bench/FmtPlayfile.h"
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <utility>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfLine = 2;
constexpr double kUsualOfLine = 1.5;
constexpr double kMostOfLineForVersion = 1.3;
constexpr double kMostMebibytes = 64;
constexpr double kUsualMebibytes = 32;
constexpr int kTurns = 301;
constexpr std::int16_t kPlainFont = 8;
constexpr PlayfileSize kSheets[] = {{1000, 2}, {4000, 2}};

/// The unit of memory, as if it were a job to compare with.
constexpr const char* kMebibyte = "1 MiB";

struct Runs {
    double milliseconds; ///< Median of the processor times.
    double mebibytes;    ///< The most of all runs.
};

struct ClosePipe {
    void operator()(std::FILE* pipe) const { ::pclose(pipe); }
};

std::string quoted(const std::string& path) { return "'" + path + "'"; }

/// Runs programs in turns; each command is one for a shell.
std::vector<Runs> measureRuns(int turns, const std::vector<std::string>& commands) {
    std::string line = quoted(QRT_MEASURE_RUNS) + " " + std::to_string(turns);
    for (const std::string& command : commands)
        line += (&command == &commands.front() ? " " : " -- ") + command;
    const std::unique_ptr<std::FILE, ClosePipe> pipe(::popen(line.c_str(), "r"));
    std::vector<Runs> all;
    double milliseconds = 0, kibibytes = 0;
    while (pipe && std::fscanf(pipe.get(), "%lf %lf", &milliseconds, &kibibytes) == 2)
        all.push_back({milliseconds, kibibytes / 1024});
    Require(all.size() == commands.size(), "a program cannot be measured: " + line);
    return all;
}

/// Registers jobs that measure themselves. What a program does cannot be counted from outside.
template <class Measure>
void registerMeasuring(const std::string& name, Measure measure) {
    if (AreInstructionsCounted())
        return;
    benchmark::RegisterBenchmark(name.c_str(),
                                 [measure](benchmark::State& state) {
                                     for (auto _ : state)
                                         measure();
                                 })
        ->Iterations(1)
        ->Repetitions(1);
}

/// The jobs are measured together, so that a machine that gets slower slows all of them.
void registerStart(const std::string& show, const std::string& version, const std::string& line) {
    registerMeasuring(show, [=] {
        const std::string vistrel = quoted(QRT_VISTREL);
        const std::vector<Runs> runs =
            measureRuns(kTurns, {vistrel + " --home " + quoted(QRT_SAMPLES_FOLDER) + " show " +
                                     quoted(QRT_SAMPLES_FOLDER "/harbour.playfile"),
                                 vistrel + " --version", quoted(QRT_PRINT_LINE)});
        auto run = runs.begin();
        for (const std::string& job : {show, version, line})
            Measured()[job] = run++->milliseconds;
    });
}

/// Frames that need none but the fonts of the sample home.
Frames makeFrames(PlayfileSize size, const BenchFolder& folder) {
    Frames frames = MakeFrames(size, folder);
    for (FrameRecord& frame : frames)
        for (LineRecord& line : frame.lines)
            if (!std::exchange(line.LineCustomFont, "").empty())
                line.LineFontSize = kPlainFont;
    return frames;
}

void registerSheet(const std::string& name, PlayfileSize size, const std::string& home,
                   const BenchFolder& folder) {
    registerMeasuring(name, [=, &folder] {
        const std::string playfile = folder.file("sheet.playfile");
        SaveWithFmt(makeFrames(size, folder), playfile);
        const std::string picture = folder.file("sheet.png");
        std::filesystem::remove(picture);
        const std::string sheet = quoted(QRT_VISTREL) + " --home " + quoted(home) + " preview " +
                                  quoted(playfile) + " --sheet --size 128x32 --out " + quoted(picture);
        Measured()[kMebibyte] = 1;
        Measured()[name] = measureRuns(1, {sheet}).front().mebibytes;
        if (!std::filesystem::exists(picture))
            throw std::runtime_error("no sheet was drawn");
    });
}

} // namespace

std::vector<Ratio> ProgramSubject(const BenchFolder& folder) {
    const std::string show = "program/show", version = "program/version", line = "program/print a line";
    registerStart(show, version, line);
    std::vector<Ratio> ratios{
        {"vistrel show, whole process", show, line, Bound::must, kMostOfLine},
        {"vistrel show, whole process", show, line, Bound::aim, kUsualOfLine},
        {"vistrel --version, whole process", version, line, Bound::must, kMostOfLineForVersion}};
    const std::string home = folder.homeWithFonts("sheets");
    for (const PlayfileSize size : kSheets) {
        const std::string frames = std::to_string(size.frames);
        registerSheet("program/sheet/" + frames, size, home, folder);
        for (const auto& [bound, most] :
             {std::pair(Bound::must, kMostMebibytes), std::pair(Bound::aim, kUsualMebibytes)})
            ratios.push_back(
                {"sheet of " + frames + " frames", "program/sheet/" + frames, kMebibyte, bound, most});
    }
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
