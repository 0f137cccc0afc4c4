// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_FONTS_FONT_REGISTRY_WIN32_H
#define VELLUM_TESTS_FONTS_FONT_REGISTRY_WIN32_H

#include <string>
#include <vector>

namespace fonts_test {

class Machine;

/// The keys of the registry that list fonts: that of Windows, and that of the systems before Windows XP.
inline constexpr char kFontsKey[] = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts";
inline constexpr char kOlderFontsKey[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Fonts";

/// Makes Windows report a TrueType family more to this process; returns its name. It comes from one of the test fonts
/// that Windows accepts.
std::string AddFamily(const Machine& machine, const std::string& font = "windows.ttf");

/// Writes which file the registry names for a family.
void RegisterFont(const std::string& family, const std::string& file);

/// Writes a value of the registry's list of fonts. Those of other names than families of `AddFamily` stay until they
/// are removed.
void WriteFontValue(const std::string& name, const std::string& text);

/// Writes a value of any type (REG_BINARY and so on) and of any bytes, into one of the two lists.
void WriteFontBytes(const std::string& name, unsigned long type, const std::string& bytes, const char* key = kFontsKey);

/// The files of the records that a scan makes, but for the font folder's @p inFolder, which must be the first.
std::vector<std::string> ScanRegistered(const std::string& inFolder);

/// Removes all values whose names begin like those families.
void UnregisterFonts();

}  // namespace fonts_test

#endif
