// The temporary files of this process, so that they can be removed when somebody ends it.
#pragma once

#include <string>

namespace qrtVistrelClasses4 {

/// Makes the next functions work. A program calls this once, before it starts threads; in hosts of the
/// library, which handle signals in their own way, they do nothing.
void StartNotingTemporaryFiles();
bool AreTemporaryFilesNoted();

/// Notes a file that has been made, until it is removed or gets its final name. Several threads may call
/// these functions. Files beyond the first few dozen at the same time are not noted.
void NoteTemporaryFile(const std::string& path);
void ForgetTemporaryFile(const std::string& path);

/// Calls `visit` with the path of each noted file. A signal handler may call this.
void ForEachTemporaryFile(void (*visit)(const char* path));

} // namespace qrtVistrelClasses4
