// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_FONTS_FONT_REGISTRY_WIN32_H
#define VELLUM_TESTS_FONTS_FONT_REGISTRY_WIN32_H

#include <string>

namespace fonts_test {

class Machine;

/// Makes Windows report a TrueType family more to this process; returns its name. It comes from one of the test fonts
/// that Windows accepts.
std::string AddFamily(const Machine& machine, const std::string& font = "windows.ttf");

/// Writes which file the registry names for a family.
void RegisterFont(const std::string& family, const std::string& file);

/// Writes a value of the registry's list of fonts. Those of other names than families of `AddFamily` stay until they
/// are removed.
void WriteFontValue(const std::string& name, const std::string& text);

/// Removes all values whose names begin like those families.
void UnregisterFonts();

}  // namespace fonts_test

#endif
