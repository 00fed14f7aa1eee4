// What is measured. Each function makes its files, checks that all contestants do the same work, registers
// the benchmarks, and returns how they should compare. The folder must stay as long as benchmarks run.
#pragma once

#include "bench/BenchFolder.h"
#include "bench/Ratio.h"

namespace qrtVistrelClasses4::bench {

/// Loading and saving playfiles, and how both grow with the number of frames.
std::vector<Ratio> PlayfileSubject(const BenchFolder& folder);
/// Loading a playfile whose pictures are gone.
std::vector<Ratio> ReferencesSubject(const BenchFolder& folder);
/// Examining a playfile, without its files.
std::vector<Ratio> ValidationSubject(const BenchFolder& folder);
/// Reading all properties of playfiles and signs. The library's home must be the folder.
std::vector<Ratio> WalkSubject(const BenchFolder& folder);
/// Exporting playfiles as XML.
std::vector<Ratio> XmlSubject(const BenchFolder& folder);
/// Writing playfiles as JSON, and reading it.
std::vector<Ratio> JsonSubject(const BenchFolder& folder);
/// Inserting, deleting and moving frames.
std::vector<Ratio> EditSubject(const BenchFolder& folder);
/// Inserting, adding and removing one record after another, thousands of them.
std::vector<Ratio> RepeatedEditSubject();
/// Keeping the states of a playfile for undo.
std::vector<Ratio> HistorySubject(const BenchFolder& folder);
/// Loading, saving and searching lists of signs. The library's home must be the folder.
std::vector<Ratio> DisplaysSubject(const BenchFolder& folder);
/// Rewriting placeholders of older texts; loading and saving the table of commands. The library's home must
/// be the folder.
std::vector<Ratio> CommandsSubject(const BenchFolder& folder);
/// Opening a playfile of the older format. The library's home must be the folder.
std::vector<Ratio> LegacySubject(const BenchFolder& folder);
/// How long a sign takes to show a playfile.
std::vector<Ratio> PlayTimeSubject(const BenchFolder& folder);
/// Drawing texts on pixels in memory.
std::vector<Ratio> FontsSubject(const BenchFolder& folder);
/// Loading and saving all preferences. The library's home must be the folder.
std::vector<Ratio> SettingsSubject(const BenchFolder& folder);
/// Drawing all frames of a playfile into one picture. The library's home must be the folder.
std::vector<Ratio> PreviewSubject(const BenchFolder& folder);
/// Playing a film. The library's home must be the folder.
std::vector<Ratio> FilmSubject(const BenchFolder& folder);
/// Starting the program, and the memory that it needs.
std::vector<Ratio> ProgramSubject(const BenchFolder& folder);
/// Properties with and without the call trace.
std::vector<Ratio> TraceSubject();

} // namespace qrtVistrelClasses4::bench
