// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <atomic>
#include <memory>

#include "fonts/folder_searches.h"
#include "support/import_patch_win32.h"

namespace fonts_test {

namespace {

std::unique_ptr<support::ImportPatch> patch;
std::atomic<int> count = 0;

HANDLE WINAPI CountSearch(LPCSTR pattern, LPWIN32_FIND_DATAA match) {
    ++count;
    Sleep(100);
    return patch->Original<decltype(FindFirstFileA)>()(pattern, match);
}

}  // namespace

SlowFolderSearches::SlowFolderSearches() {
    count = 0;
    patch = std::make_unique<support::ImportPatch>("FindFirstFileA", CountSearch);
}

SlowFolderSearches::~SlowFolderSearches() { patch.reset(); }

int SlowFolderSearches::Count() const { return count; }

}  // namespace fonts_test
