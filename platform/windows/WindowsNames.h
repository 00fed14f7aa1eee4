// Names of files and other texts as the system takes and gives them.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// From now on, this process has names in UTF-8, or in the ANSI code page.
void SetNamesUtf8(bool areUtf8);

/// `name` for a function of the system. A long one is in the form that has no limit of 260 characters.
std::wstring WideName(std::string_view name);

/// The name that the system gives. In the ANSI code page, characters that it lacks are replaced.
std::string NameFromWide(std::wstring_view wide);

/// Each part of `utf8` that is not UTF-8 becomes U+FFFD.
std::wstring WideFromUtf8(std::string_view utf8);
std::string Utf8FromWide(std::wstring_view wide);

/// A variable of the environment as it is now. Empty if it is not set.
std::wstring WideEnvironment(const wchar_t* name);

/// Whether the system takes the name for a device, such as "NUL" and, before Windows 11, "NUL.txt".
bool IsDeviceName(std::string_view name);

} // namespace qrtVistrelClasses4
