// SPDX-License-Identifier: MIT
#include <dirent.h>
#include <dlfcn.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "fonts/folder_searches.h"

namespace {

std::atomic<bool> counted = false;
std::atomic<int> count = 0;

}  // namespace

// The program's definition comes before the C library's, for the library too.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the C library's names are reserved
extern "C" DIR* opendir(const char* path) {
    if (counted) {
        ++count;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    static const auto open = reinterpret_cast<DIR* (*)(const char*)>(dlsym(RTLD_NEXT, "opendir"));
    return open(path);
}

namespace fonts_test {

SlowFolderSearches::SlowFolderSearches() {
    count = 0;
    counted = true;
}

SlowFolderSearches::~SlowFolderSearches() { counted = false; }

int SlowFolderSearches::Count() const { return count; }

}  // namespace fonts_test
