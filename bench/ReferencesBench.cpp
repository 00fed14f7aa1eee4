// A playfile whose pictures are gone, in a folder with thousands of other files.
#include "bench/CarefulPlayfile.h"
#include "bench/FmtPlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"

#include <filesystem>
#include <sys/stat.h>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr PlayfileSize kFrames{1000, 2};
constexpr int kOtherFiles = 10000;

/// Every frame refers to a picture of its own that is not there.
Frames makeFrames(const BenchFolder& folder) {
    Frames frames = MakeFrames(kFrames, folder);
    int number = 0;
    for (FrameRecord& frame : frames) {
        frame.commandfile.clear();
        const std::string name = "GONE_" + std::to_string(++number) + ".BMP";
        frame.PicturefileName = (number % 2 == 0 ? "C:\\Signs\\" : "/srv/signs/") + name;
    }
    return frames;
}

/// Reads the file, finds the line ends, asks for each picture under its name and goes through the names in
/// the folder once.
void loadAtLeast(const std::string& path, const Frames& frames) {
    benchmark::DoNotOptimize(CountLineEnds(ReadWholeFile(path).text()));
    struct stat status {};
    for (const FrameRecord& frame : frames)
        benchmark::DoNotOptimize(::stat(frame.PicturefileName.c_str(), &status));
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(path).parent_path()))
        benchmark::DoNotOptimize(&entry);
}

std::unique_ptr<FrameInfoClass> load(const std::string& path) {
    auto frames = std::make_unique<FrameInfoClass>();
    Require(frames->GetPlayfileFromDisk(path), "cannot load " + path);
    return frames;
}

} // namespace

std::vector<Ratio> ReferencesSubject(const BenchFolder& folder) {
    const std::string crowd = folder.file("crowd/");
    std::filesystem::create_directory(crowd);
    for (int number = 0; number < kOtherFiles; ++number)
        WriteNewFile(crowd + "picture_" + std::to_string(number) + ".bmp", "");
    const std::string path = crowd + "gone.playfile";
    const Frames frames = makeFrames(folder);
    SaveWithFmt(frames, path);
    Require(load(path)->Value().frames == frames && LoadCarefully(path) == frames,
            "a picture is found that is gone");
    RegisterWork("missing/load",
                 [path](benchmark::State& state) { TimeMaking(state, [&] { return load(path); }); });
    RegisterWork("missing/careful", [path](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<Frames>(LoadCarefully(path)); });
    });
    RegisterWork("missing/limit", [path, frames](benchmark::State& state) {
        TimeWork(state, [&] { loadAtLeast(path, frames); });
    });
    const std::string subject = "1000 missing, 10,000 files";
    return {{subject, "missing/load", "missing/limit", Bound::must, 10},
            {subject, "missing/load", "missing/limit", Bound::aim, 4},
            {subject, "missing/load", "missing/careful", Bound::aim, 1.2}};
}

} // namespace qrtVistrelClasses4::bench
