// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <stdlib.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

#include "fonts/font_machine.h"
#include "fonts/font_registry_win32.h"

namespace fonts_test {

namespace fs = std::filesystem;

namespace {

fs::path NewDirectory() {
    const fs::path scratch = fs::temp_directory_path();
    for (int number = 0;; ++number) {
        fs::path directory =
            scratch / ("vellum-fonts-" + std::to_string(GetCurrentProcessId()) + '-' + std::to_string(number));
        if (fs::create_directory(directory)) return directory;
    }
}

}  // namespace

Machine::Machine() {
    if (std::getenv("VELLUM_TEST_MACHINE") == nullptr)
        throw std::runtime_error("these tests change the machine's fonts; ./dev windows gives them one");
    // A test that was interrupted may have left some.
    RemoveFonts();
    root_ = NewDirectory();
    fs::create_directories(Elsewhere());
    UnsetVariable("KVO_LANG_SUB_DIR");
}

Machine::~Machine() {
    RemoveFonts();
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

std::string Machine::Folder() const {
    char directory[MAX_PATH] = "";
    GetWindowsDirectoryA(directory, MAX_PATH);
    return std::string(directory) + "\\Fonts";
}

std::string Machine::InstallBelow(const std::string& font) const { return Install(font); }

std::string Machine::Register(const std::string& font, const std::string& as) const {
    std::string path = Copy(font, Elsewhere() + '\\' + (as.empty() ? font : as));
    RegisterFont(AddFamily(*this), path);
    return path;
}

void Machine::RemoveFonts() const {
    UnregisterFonts();
    // The destructor does this too. A font that stays shows in the next test.
    std::error_code ignored;
    for (fs::directory_iterator entry(Folder(), ignored); entry != fs::directory_iterator(); entry.increment(ignored))
        fs::remove_all(entry->path(), ignored);
    if (!root_.empty()) fs::remove_all(Elsewhere(), ignored);
}

void SetVariable(const char* name, const std::string& value) { _putenv_s(name, value.c_str()); }

void UnsetVariable(const char* name) { _putenv_s(name, ""); }

}  // namespace fonts_test
