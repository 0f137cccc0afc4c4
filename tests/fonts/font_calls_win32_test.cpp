// SPDX-License-Identifier: MIT

// What the catalogue asks of Windows, and what it makes of answers that this machine would not give.

#define WIN32_LEAN_AND_MEAN
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "fonts/font_machine.h"
#include "fonts/font_registry_win32.h"
#include "support/import_patch_win32.h"

namespace {

using fonts_test::AddFamily;
using fonts_test::Catalogue;
using fonts_test::EmptyCatalogue;
using fonts_test::FolderFiles;
using fonts_test::Machine;
using fonts_test::RegisterFont;
using fonts_test::WriteFontBytes;
using support::ImportPatch;
using Names = std::vector<std::string>;

// The functions that take the place of the system's are set up by these, and write down here what they were asked.

struct Shell {
    HRESULT result = S_OK;
    std::string folder;
    std::vector<int> folders;
} shell;

HRESULT WINAPI TellFolder(HWND window, int folder, HANDLE token, DWORD flags, LPSTR path) {
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(token, nullptr);
    EXPECT_EQ(flags, 0u);
    shell.folders.push_back(folder);
    std::strcpy(path, shell.folder.c_str());
    return shell.result;
}

FARPROC WINAPI FindInShell(HMODULE library, LPCSTR function) {
    EXPECT_NE(library, nullptr);
    EXPECT_EQ(library, GetModuleHandleA("SHELL32.DLL"));
    if (std::strcmp(function, "SHGetFolderPathA") != 0) return nullptr;
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(TellFolder));
}

FARPROC WINAPI FindNothing(HMODULE, LPCSTR) { return nullptr; }

Names loaded;

HMODULE WINAPI LoadNothing(LPCSTR name) {
    loaded.emplace_back(name);
    return nullptr;
}

struct SystemDirectory {
    std::string path;
    UINT result = 0;
} systemDirectory;

UINT WINAPI TellSystemDirectory(LPSTR path, UINT size) {
    EXPECT_EQ(size, 260u);
    std::strcpy(path, systemDirectory.path.c_str());
    return systemDirectory.result;
}

Names patterns;

HANDLE WINAPI RecordPattern(LPCSTR pattern, LPWIN32_FIND_DATAA) {
    patterns.emplace_back(pattern);
    return INVALID_HANDLE_VALUE;
}

class ShellFolder : public testing::Test {
protected:
    Catalogue fonts = EmptyCatalogue();
    Machine machine;
};

TEST_F(ShellFolder, IsTheFontFolderWhateverTheResult) {
    machine.Install("plain.ttf", "a.ttf");
    const std::string other = machine.Copy("plain.ttf", machine.Path("other\\b.ttf"));
    const ImportPatch patch("GetProcAddress", FindInShell);
    for (const HRESULT result : {S_OK, S_FALSE, E_FAIL}) {
        shell = {result, machine.Path("other"), {}};
        EXPECT_EQ(FolderFiles(*fonts, ""), Names({other}));
        EXPECT_EQ(shell.folders, std::vector<int>({20}));
    }
}

// What a system directory, and what is said of its length, make the patterns of the searches.
Names PatternsBeside(Vellum::Fonts& fonts, const std::string& path, UINT length) {
    systemDirectory = {path, length};
    patterns.clear();
    const ImportPatch directory("GetSystemDirectoryA", TellSystemDirectory);
    const ImportPatch search("FindFirstFileA", RecordPattern);
    EXPECT_EQ(fonts.GetFontFileList(), nullptr);
    return patterns;
}

TEST_F(ShellFolder, ThatIsNotNamedIsBesideTheSystemDirectory) {
    const auto expectFallback = [this] {
        EXPECT_EQ(PatternsBeside(*fonts, "X:\\win\\system32", 15), Names({"X:\\win\\Fonts\\*.tt?"}));
    };
    shell = {};
    {
        const ImportPatch patch("GetProcAddress", FindInShell);
        expectFallback();
        EXPECT_EQ(shell.folders, std::vector<int>({20}));
        shell.result = E_FAIL;
        expectFallback();
    }
    {
        const ImportPatch patch("GetProcAddress", FindNothing);
        expectFallback();
    }
    loaded.clear();
    const ImportPatch patch("LoadLibraryA", LoadNothing);
    expectFallback();
    EXPECT_EQ(loaded, Names({"SHELL32.DLL"}));
}

TEST_F(ShellFolder, ReplacesTheLastNameOfTheSystemDirectory) {
    const ImportPatch patch("LoadLibraryA", LoadNothing);
    EXPECT_EQ(PatternsBeside(*fonts, "system32", 8), Names({"\\Fonts\\*.tt?"}));
    EXPECT_EQ(PatternsBeside(*fonts, "X:\\", 3), Names({"X:\\Fonts\\*.tt?"}));
    const std::string beside = "X:\\" + std::string(254, 'w');
    const std::string longest = beside + "\\s";
    ASSERT_EQ(longest.size(), 259u);
    ASSERT_EQ(longest.rfind('\\'), 257u);
    EXPECT_EQ(PatternsBeside(*fonts, longest, 259), Names({beside + "\\Fonts\\*.tt?"}));
    EXPECT_EQ(PatternsBeside(*fonts, longest, 260), Names({beside + "\\Fonts\\*.tt?"}));
}

TEST_F(ShellFolder, IsNoneWithoutASystemDirectory) {
    const ImportPatch patch("LoadLibraryA", LoadNothing);
    EXPECT_EQ(PatternsBeside(*fonts, "X:\\win\\system32", 0), Names());
    EXPECT_EQ(PatternsBeside(*fonts, "X:\\win\\system32", 261), Names());
}

class Registry : public testing::Test {
protected:
    Names Registered() const { return fonts_test::ScanRegistered(inFolder); }

    std::string CopyElsewhere(const std::string& name) const {
        return machine.Copy("plain.ttf", machine.Elsewhere() + '\\' + name);
    }

    Machine machine;
    std::string inFolder = machine.Install("symbol.ttf");
};

struct VersionTest {
    BOOL answer = FALSE;
    OSVERSIONINFOEXW least = {};
    DWORD parts = 0;
    DWORDLONG conditions = 0;
} versionTest;

BOOL WINAPI TestVersion(LPOSVERSIONINFOEXW least, DWORD parts, DWORDLONG conditions) {
    versionTest.least = *least;
    versionTest.parts = parts;
    versionTest.conditions = conditions;
    return versionTest.answer;
}

class RegistryVersion : public Registry {
protected:
    RegistryVersion() {
        const std::string name = AddFamily(machine) + " (TrueType)";
        WriteFontBytes(name, REG_SZ, file + '\0');
        WriteFontBytes(name, REG_SZ, olderFile + '\0', fonts_test::kOlderFontsKey);
        versionTest = {};
    }

    std::string file = CopyElsewhere("a.ttf");
    std::string olderFile = CopyElsewhere("older.ttf");
    ImportPatch patch{"VerifyVersionInfoW", TestVersion};
};

TEST_F(RegistryVersion, IsAskedForAsWindowsXp) {
    Registered();
    EXPECT_EQ(versionTest.least.dwOSVersionInfoSize, sizeof(OSVERSIONINFOEXW));
    EXPECT_EQ(versionTest.least.dwMajorVersion, 5u);
    EXPECT_EQ(versionTest.least.dwMinorVersion, 1u);
    EXPECT_EQ(versionTest.least.wServicePackMajor, 0u);
    EXPECT_EQ(versionTest.parts, DWORD{VER_MAJORVERSION | VER_MINORVERSION | VER_SERVICEPACKMAJOR});
    const std::vector<DWORD> parts = {VER_MAJORVERSION, VER_MINORVERSION, VER_SERVICEPACKMAJOR};
    DWORDLONG conditions = 0;
    for (const DWORD part : parts)
        conditions = VerSetConditionMask(conditions, part, VER_GREATER_EQUAL);
    EXPECT_EQ(versionTest.conditions, conditions);
}

TEST_F(RegistryVersion, ChoosesTheKey) {
    EXPECT_EQ(Registered(), Names({olderFile}));
    versionTest.answer = TRUE;
    EXPECT_EQ(Registered(), Names({file}));
}

std::set<std::string> openedKeys;

LSTATUS WINAPI OpenNoKey(HKEY root, LPCSTR name, DWORD options, REGSAM access, PHKEY key) {
    EXPECT_EQ(root, HKEY_LOCAL_MACHINE);
    EXPECT_EQ(options, 0u);
    EXPECT_EQ(access, REGSAM{KEY_READ});
    openedKeys.insert(name);
    *key = nullptr;
    return ERROR_FILE_NOT_FOUND;
}

TEST_F(RegistryVersion, MayNameAKeyThatIsNotThere) {
    openedKeys.clear();
    const ImportPatch open("RegOpenKeyExA", OpenNoKey);
    EXPECT_EQ(Registered(), Names());
    EXPECT_EQ(openedKeys, std::set<std::string>({fonts_test::kOlderFontsKey}));
    openedKeys.clear();
    versionTest.answer = TRUE;
    EXPECT_EQ(Registered(), Names());
    EXPECT_EQ(openedKeys, std::set<std::string>({fonts_test::kFontsKey}));
}

// One family, called by all of the 32 bytes of its name if it has so many, once for each of the types.
struct Families {
    std::string name;
    std::vector<DWORD> types;
    std::vector<int> answers;
} families;

int WINAPI EnumerateFamilies(HDC context, LPLOGFONTA which, FONTENUMPROCA callback, LPARAM argument, DWORD flags) {
    EXPECT_NE(context, nullptr);
    EXPECT_EQ(which->lfCharSet, DEFAULT_CHARSET);
    EXPECT_EQ(which->lfCharSet, 1);
    EXPECT_STREQ(which->lfFaceName, "");
    EXPECT_EQ(flags, 0u);
    ENUMLOGFONTEXA font = {};
    // What follows the name is not part of it.
    std::fill(std::begin(font.elfFullName), std::end(font.elfFullName), BYTE{'z'});
    families.name.copy(font.elfLogFont.lfFaceName, sizeof font.elfLogFont.lfFaceName);
    NEWTEXTMETRICEXA metrics = {};
    for (const DWORD type : families.types)
        families.answers.push_back(
            callback(&font.elfLogFont, reinterpret_cast<const TEXTMETRICA*>(&metrics), type, argument));
    return 1;
}

class EnumeratedFamilies : public Registry {
protected:
    ImportPatch patch{"EnumFontFamiliesExA", EnumerateFamilies};
};

TEST_F(EnumeratedFamilies, CountWhereTheyAreTrueType) {
    families = {"Vellum Windows enumerated", {1, 2, 3, 4, 5, 7}, {}};
    const std::string file = CopyElsewhere("a.ttf");
    RegisterFont(families.name, file);
    EXPECT_EQ(Registered(), Names({file, file, file}));
    EXPECT_EQ(families.answers, std::vector<int>(6, 1));
}

TEST_F(EnumeratedFamilies, AreHeardToTheEnd) {
    families = {"Vellum Windows enumerated", std::vector<DWORD>(103, 4), {}};
    const std::string file = CopyElsewhere("a.ttf");
    RegisterFont(families.name, file);
    EXPECT_EQ(Registered(), Names(100, file));
    EXPECT_EQ(families.answers, std::vector<int>(103, 1));
}

struct ValueQuery {
    std::string name;
    DWORD size = 0;
} valueQuery;

LSTATUS WINAPI QueryNoValue(HKEY, LPCSTR name, LPDWORD, LPDWORD, LPBYTE, LPDWORD size) {
    valueQuery = {name, *size};
    return ERROR_FILE_NOT_FOUND;
}

TEST_F(EnumeratedFamilies, MayFillTheirNames) {
    const ImportPatch query("RegQueryValueExA", QueryNoValue);
    for (const size_t length : {1u, 31u, 32u}) {
        families = {std::string(length - 1, 'n') + 'm', {TRUETYPE_FONTTYPE}, {}};
        EXPECT_EQ(Registered(), Names());
        EXPECT_EQ(valueQuery.name, families.name + " (TrueType)");
        EXPECT_EQ(valueQuery.size, 200u);
    }
}

// Whether a call has succeeded, of the system's kinds of functions.
bool Succeeded(LSTATUS status) { return status == ERROR_SUCCESS; }
bool Succeeded(BOOL done) { return done != FALSE; }
bool Succeeded(HANDLE handle) { return handle != nullptr && handle != INVALID_HANDLE_VALUE; }

// Counts the library's calls of a function that succeed.
template <auto kFunction>
class CallCounter;

template <class Result, class... Arguments, Result(WINAPI* kFunction)(Arguments...)>
class CallCounter<kFunction> {
public:
    explicit CallCounter(const char* name) : patch_(name, Call) {
        count = 0;
        original = patch_.template Original<Result WINAPI(Arguments...)>();
    }

    int Count() const { return count; }

private:
    static Result WINAPI Call(Arguments... arguments) {
        const Result result = original(arguments...);
        if (Succeeded(result)) ++count;
        return result;
    }

    static inline int count = 0;
    static inline Result(WINAPI* original)(Arguments...) = nullptr;
    ImportPatch patch_;
};

// What a scan takes of the system.
struct ResourceCounters {
    CallCounter<LoadLibraryA> loaded{"LoadLibraryA"};
    CallCounter<FreeLibrary> freed{"FreeLibrary"};
    CallCounter<FindFirstFileA> searches{"FindFirstFileA"};
    CallCounter<FindClose> closedSearches{"FindClose"};
    CallCounter<GetDC> contexts{"GetDC"};
    CallCounter<RegOpenKeyExA> keys{"RegOpenKeyExA"};
    CallCounter<RegCloseKey> closedKeys{"RegCloseKey"};
};

class Resources : public testing::Test {
protected:
    Catalogue fonts = EmptyCatalogue();
    Machine machine;
};

TEST_F(Resources, OfAnEmptyFolderAreGivenBack) {
    const ResourceCounters counters;
    EXPECT_FALSE(fonts->InitFaceList());
    EXPECT_EQ(counters.loaded.Count(), 1);
    EXPECT_EQ(counters.freed.Count(), 1);
    EXPECT_EQ(counters.searches.Count(), 0);
    EXPECT_EQ(counters.closedSearches.Count(), 0);
    EXPECT_EQ(counters.contexts.Count(), 0);
    EXPECT_EQ(counters.keys.Count(), 0);
    EXPECT_EQ(counters.closedKeys.Count(), 0);
}

TEST_F(Resources, OfFilesAndValuesAreGivenBackButTheDeviceContext) {
    machine.Install("plain.ttf");
    machine.Register("plain.ttf", "a.ttf");
    RegisterFont(AddFamily(machine), "C:\\" + std::string(300, 'x'));
    // Without a value.
    AddFamily(machine);
    const ResourceCounters counters;
    EXPECT_TRUE(fonts->InitFaceList());
    EXPECT_EQ(fonts_test::CountRecords(*fonts), 2u);
    EXPECT_EQ(counters.loaded.Count(), 1);
    EXPECT_EQ(counters.freed.Count(), 1);
    EXPECT_EQ(counters.searches.Count(), 1);
    EXPECT_EQ(counters.closedSearches.Count(), 1);
    EXPECT_EQ(counters.contexts.Count(), 1);
    EXPECT_GE(counters.keys.Count(), 3);
    EXPECT_EQ(counters.closedKeys.Count(), counters.keys.Count());
    EXPECT_THROW(ImportPatch("ReleaseDC", ReleaseDC), std::runtime_error);
}

}  // namespace
