// The files that frames of a playfile refer to.
#pragma once

#include "bench/BenchFolder.h"
#include "bench/Dice.h"
#include <qrtVistrelClasses4/FrameRecord.h>

#include <string>

namespace qrtVistrelClasses4::bench {

/// References such as playfiles have that were made on other machines: full names of files that are there,
/// Windows paths and plain names of files that lie beside the playfile, in another case, too, and paths that
/// lead nowhere. Many frames share a file.
class SampleReferences {
public:
    /// Makes the files. The playfiles lie in the folder.
    explicit SampleReferences(const BenchFolder& folder);

    std::string picture(Dice& dice) const { return oneOf(dice, ".bmp"); }
    std::string commandFile(Dice& dice) const { return oneOf(dice, ".cmd"); }
    /// What loading makes of a reference.
    std::string onceLoaded(const std::string& reference) const;

private:
    std::string oneOf(Dice& dice, const std::string& ending) const;

    std::string home_;     ///< The folder of the playfiles, with its separator.
    std::string pictures_; ///< Another one.
};

/// Replaces the references of all frames by what loading makes of them.
void FindReferences(OneBasedArray<FrameRecord>& frames, const BenchFolder& folder);

} // namespace qrtVistrelClasses4::bench
