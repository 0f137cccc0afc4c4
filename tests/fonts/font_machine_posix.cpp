// SPDX-License-Identifier: MIT
#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

#include "fonts/font_machine.h"

namespace fonts_test {

namespace fs = std::filesystem;

Machine::Machine() {
    // In memory where that can be: the tests make thousands of files.
    const fs::path scratch = fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path();
    std::string name = scratch / "vellum-fonts-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no scratch directory");
    root_ = fs::canonical(name);
    fs::create_directories(Folder());
    fs::create_directories(Elsewhere());
    Write(Path("fonts.conf"), "<fontconfig><dir>" + Folder() + "</dir><dir>" + Elsewhere() + "</dir><cachedir>" +
                                  Path("cache") + "</cachedir></fontconfig>");
    SetVariable("XDG_DATA_DIRS", Path("share"));
    SetVariable("FONTCONFIG_FILE", Path("fonts.conf"));
    SetVariable("XDG_DATA_HOME", Path("home"));
    SetVariable("XDG_CONFIG_HOME", Path("home/config"));
    SetVariable("XDG_CACHE_HOME", Path("home/cache"));
    UnsetVariable("FONTCONFIG_SYSROOT");
    UnsetVariable("KVO_LANG_SUB_DIR");
}

Machine::~Machine() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

std::string Machine::Folder() const { return Path("share/fonts"); }

std::string Machine::InstallBelow(const std::string& font) const { return Install(font, "sub/" + font); }

std::string Machine::Register(const std::string& font, const std::string& as) const {
    return Copy(font, Elsewhere() + '/' + (as.empty() ? font : as));
}

void Machine::HideSystem() const {
    const std::string root = Path("root");
    const std::string inside = root + root_.string();
    fs::create_directories(fs::path(inside).parent_path());
    fs::create_directory_symlink(root_, inside);
    SetVariable("FONTCONFIG_SYSROOT", root);
}

void Machine::RemoveFonts() const {
    fs::remove_all(Folder());
    fs::remove_all(Elsewhere());
}

void SetVariable(const char* name, const std::string& value) { setenv(name, value.c_str(), 1); }

void UnsetVariable(const char* name) { unsetenv(name); }

}  // namespace fonts_test
