// SPDX-License-Identifier: MIT
#include "fonts/font_registry_win32.h"

#define WIN32_LEAN_AND_MEAN
#include <gtest/gtest.h>
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

constexpr std::string_view kFamilies = "Vellum Windows ";

struct KeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
};

using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

Key OpenKey(const char* name) {
    HKEY key = nullptr;
    const DWORD access = KEY_READ | KEY_WRITE;
    if (RegCreateKeyExA(HKEY_LOCAL_MACHINE, name, 0, nullptr, 0, access, nullptr, &key, nullptr) != ERROR_SUCCESS)
        return nullptr;
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

void WriteFontValue(const std::string& name, const std::string& text) { WriteFontBytes(name, REG_SZ, text + '\0'); }

void WriteFontBytes(const std::string& name, unsigned long type, const std::string& bytes, const char* key) {
    const Key fonts = OpenKey(key);
    if (!fonts) throw std::runtime_error("no key of fonts");
    if (RegSetValueExA(fonts.get(), name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                       static_cast<DWORD>(bytes.size())) != ERROR_SUCCESS)
        throw std::runtime_error("no value for " + name);
}

std::vector<std::string> ScanRegistered(const std::string& inFolder) {
    const Catalogue fonts = ScannedCatalogue();
    std::vector<std::string> files = FilesOf(*fonts);
    EXPECT_EQ(files.at(0), inFolder);
    files.erase(files.begin());
    return files;
}

void UnregisterFonts() {
    for (const char* name : {kFontsKey, kOlderFontsKey}) {
        const Key key = OpenKey(name);
        if (!key) continue;
        for (const std::string& value : ValueNames(key.get())) {
            if (value.starts_with(kFamilies)) RegDeleteValueA(key.get(), value.c_str());
        }
    }
}

}  // namespace fonts_test
