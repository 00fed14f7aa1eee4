// What `vistrel doctor` looks at. No check changes anything, makes a folder or asks a question.
#pragma once

#include "tools/doctor/AdvisedCommands.h"
#include "tools/doctor/Findings.h"
#include "tools/program/ErrorLines.h"

#include <string_view>

namespace qrtVistrelClasses4 {

/// The program with its version ("4.0.0"), the system, and the terminal.
void CheckProgram(std::string_view version, DoctorFindings& findings);

/// The classes that scripts create: where they are registered, and whether these files have this version.
/// Finds nothing on systems without registrations.
void CheckServers(std::string_view version, DoctorFindings& findings);

/// Whether settings and files can be saved.
void CheckRights(DoctorFindings& findings);

/// The files of the library: where they are, and whether they are whole. Errors of finding their places are
/// added to `errors`.
void CheckStores(const AdvisedCommands& commands, DoctorFindings& findings, ErrorLines& errors);

/// Files and folders that settings and the list of recent files name.
void CheckNamedFiles(const AdvisedCommands& commands, DoctorFindings& findings);

/// The numbered fonts and the others.
void CheckFonts(DoctorFindings& findings);

} // namespace qrtVistrelClasses4
