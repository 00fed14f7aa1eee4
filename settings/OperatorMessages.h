// What is put before the operator, if there is one.
#pragma once

#include <qrtVistrelClasses4/MessageBoxes.h>

#include <string>

namespace qrtVistrelClasses4 {

/// Whether no box of the library's own is to be shown, because nobody would answer it. The environment
/// variable QRTVISTREL_UNATTENDED decides; without it, the setting "Vistrel3" / "Settings" / "Unattended" of
/// the user, then that of the machine. Every text counts as yes, except "False", 0 and blanks. False while a
/// host has installed boxes, since these are its own affair.
bool IsUnattended();

/// The boxes in use: those that a host installed last; the platform's own; or, unattended, boxes that nobody
/// sees. These write title, text and answer to the error log, or else to standard error, and the answer to
/// each question is No.
MessageBoxes& OperatorBoxes();

/// Shows that something has failed without an error that was trapped. The object whose call is running
/// remembers `number` and `text` as its error.
void ShowFailure(int number, const std::string& text, const char* title);

} // namespace qrtVistrelClasses4
