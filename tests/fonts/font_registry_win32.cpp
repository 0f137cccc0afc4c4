// SPDX-License-Identifier: MIT
#include "fonts/font_registry_win32.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <type_traits>
#include <vector>

#include "fonts/font_machine.h"

namespace fonts_test {

namespace {

constexpr char kFontsKey[] = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts";
constexpr std::string_view kFamilies = "Vellum Windows ";

struct KeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
};

using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

Key FontsKey() {
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kFontsKey, 0, KEY_READ | KEY_WRITE, &key) != ERROR_SUCCESS)
        throw std::runtime_error("no key of fonts");
    return Key(key);
}

std::vector<std::string> ValueNames(HKEY key) {
    std::vector<std::string> names;
    for (DWORD i = 0;; ++i) {
        char name[256];
        DWORD length = sizeof name;
        if (RegEnumValueA(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) return names;
        names.emplace_back(name, length);
    }
}

std::string Utf16(std::string_view text) {
    std::string bytes;
    for (const char c : text)
        bytes += {'\0', c};
    return bytes;
}

}  // namespace

std::string AddFamily(const Machine& machine, const std::string& font) {
    static int families = 0;
    char number[8];
    std::snprintf(number, sizeof number, "%03d", ++families);
    std::string bytes = ReadFile(TestFont(font));
    bytes.replace(bytes.find(Utf16("000")), 6, Utf16(number));
    const std::string path = machine.Path(std::string("families/") + number + ".ttf");
    machine.Write(path, bytes);
    if (AddFontResourceExA(path.c_str(), FR_PRIVATE, nullptr) != 1) throw std::runtime_error("no font for Windows");
    return std::string(kFamilies) + number;
}

void RegisterFont(const std::string& family, const std::string& file) { WriteFontValue(family + " (TrueType)", file); }

void WriteFontValue(const std::string& name, const std::string& text) {
    RegSetValueExA(FontsKey().get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>(text.size() + 1));
}

void UnregisterFonts() {
    const Key key = FontsKey();
    for (const std::string& name : ValueNames(key.get())) {
        if (name.starts_with(kFamilies)) RegDeleteValueA(key.get(), name.c_str());
    }
}

}  // namespace fonts_test
