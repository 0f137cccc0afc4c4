// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "fonts/font_platform.h"

namespace Vellum::internal {

namespace {

constexpr int kFontsFolder = 0x14;  // CSIDL_FONTS
constexpr DWORD kValueSize = 200;
constexpr char kFolderName[] = "\\Fonts";
constexpr char kTrueTypeSuffix[] = " (TrueType)";

using FolderPath = char[MAX_PATH + sizeof kFolderName];

struct LibraryCloser {
    void operator()(HMODULE library) const { FreeLibrary(library); }
};

struct SearchCloser {
    void operator()(HANDLE search) const { FindClose(search); }
};

using Library = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryCloser>;
using Search = std::unique_ptr<std::remove_pointer_t<HANDLE>, SearchCloser>;

// Leaves the path empty where the shell does not tell. The path tells, not the result: at a failure it stays empty.
void AskShell(HMODULE shell, FolderPath& folder) {
    using GetFolderPath = HRESULT(WINAPI*)(HWND, int, HANDLE, DWORD, LPSTR);
    if (shell == nullptr) return;
    // What GetProcAddress gives is of no particular type; by way of void*, compilers do not take the change for a slip.
    const auto getFolderPath =
        reinterpret_cast<GetFolderPath>(reinterpret_cast<void*>(GetProcAddress(shell, "SHGetFolderPathA")));
    if (getFolderPath == nullptr) return;
    getFolderPath(nullptr, kFontsFolder, nullptr, 0, folder);
}

// The folder beside the system directory.
bool GuessFolder(FolderPath& folder) {
    const UINT length = GetSystemDirectoryA(folder, MAX_PATH);
    if (length == 0 || length > MAX_PATH) return false;
    char* const cut = std::strrchr(folder, '\\');
    std::memcpy(cut == nullptr ? folder : cut, kFolderName, sizeof kFolderName);
    return true;
}

// Folder and name, joined; null where memory runs out.
OwnedText Join(const char* folder, const char* name) {
    const size_t size = std::strlen(folder) + 1 + std::strlen(name) + 1;
    OwnedText path(new (std::nothrow) char[size]);
    if (path) std::snprintf(path.get(), size, "%s\\%s", folder, name);
    return path;
}

void AddMatches(const char* folder, FolderFonts& found) {
    const OwnedText pattern = Join(folder, "*.tt?");
    if (!pattern) return;
    WIN32_FIND_DATAA match;
    HANDLE first = FindFirstFileA(pattern.get(), &match);
    if (first == INVALID_HANDLE_VALUE) return;
    const Search search(first);
    do {
        OwnedText path = Join(folder, match.cFileName);
        if (!path) return;
        found.Add(std::move(path));
    } while (!found.IsFull() && FindNextFileA(search.get(), &match) != FALSE);
}

bool IsXpOrLater() {
    OSVERSIONINFOEXW least = {};
    least.dwOSVersionInfoSize = sizeof least;
    least.dwMajorVersion = 5;
    least.dwMinorVersion = 1;
    least.wServicePackMajor = 0;
    DWORDLONG conditions = VerSetConditionMask(0, VER_MAJORVERSION, VER_GREATER_EQUAL);
    conditions = VerSetConditionMask(conditions, VER_MINORVERSION, VER_GREATER_EQUAL);
    conditions = VerSetConditionMask(conditions, VER_SERVICEPACKMAJOR, VER_GREATER_EQUAL);
    return VerifyVersionInfoW(&least, VER_MAJORVERSION | VER_MINORVERSION | VER_SERVICEPACKMAJOR, conditions) != FALSE;
}

const char* FontsKey() {
    return IsXpOrLater() ? R"(SOFTWARE\Microsoft\Windows NT\CurrentVersion\Fonts)"
                         : R"(SOFTWARE\Microsoft\Windows\CurrentVersion\Fonts)";
}

// The registry's value of a family's font; null where there is none.
OwnedText RegisteredValue(const char* family) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, FontsKey(), 0, KEY_READ, &key) != ERROR_SUCCESS) return nullptr;
    // A name that fills its field has no terminator.
    char name[LF_FACESIZE + sizeof kTrueTypeSuffix];
    std::snprintf(name, sizeof name, "%.*s%s", LF_FACESIZE, family, kTrueTypeSuffix);
    // A value may lack its terminator.
    OwnedText value(new (std::nothrow) char[kValueSize + 1]());
    DWORD size = kValueSize;
    const bool isRead = value && RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(value.get()),
                                                  &size) == ERROR_SUCCESS;
    RegCloseKey(key);
    if (!isRead) return nullptr;
    return value;
}

// Called for every family and character set. What stands in the font folder is registered by its name alone.
int CALLBACK AddRegistered(const LOGFONTA* font, const TEXTMETRICA*, DWORD fontType, LPARAM context) {
    constexpr int kGoOn = 1;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes on the pointer as a number
    auto& found = *reinterpret_cast<RegisteredFonts*>(context);
    if ((fontType & TRUETYPE_FONTTYPE) == 0 || found.IsFull()) return kGoOn;
    OwnedText path = RegisteredValue(font->lfFaceName);
    if (path && path[1] == ':') found.Add(std::move(path));
    return kGoOn;
}

}  // namespace

void FindFolderFonts(FolderFonts& found) {
    const Library shell(LoadLibraryA("SHELL32.DLL"));
    FolderPath folder = "";
    AskShell(shell.get(), folder);
    if (*folder == '\0' && !GuessFolder(folder)) return;
    AddMatches(folder, found);
}

void FindRegisteredFonts(RegisteredFonts& found) {
    LOGFONTA everyFamily = {};
    everyFamily.lfCharSet = DEFAULT_CHARSET;
    // As hosts are told, the screen's device context is never released: one stays for each scan.
    EnumFontFamiliesExA(GetDC(nullptr), &everyFamily, AddRegistered, reinterpret_cast<LPARAM>(&found), 0);
}

}  // namespace Vellum::internal
