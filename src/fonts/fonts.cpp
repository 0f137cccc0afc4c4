// SPDX-License-Identifier: MIT
#include "vellum/fonts.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "fonts/font_platform.h"
#include "fonts/font_table.h"
#include "fonts/free_type.h"

namespace Vellum {

namespace {

// Of all catalogues of the process, and never cleared: what failed once fails for good, without another scan.
bool failed = false;

void Free(char** list) {
    for (char** path = list; *path != nullptr; ++path)
        delete[] * path;
    delete[] list;
}

}  // namespace

Fonts* Fonts::getInstance() {
    static Fonts instance;
    return &instance;
}

Fonts::Fonts() { InitFaceList(); }

Fonts::~Fonts() {}

Fonts& Fonts::operator=(const Fonts& other) {
    std::memmove(static_cast<void*>(this), static_cast<const void*>(&other), sizeof *this);
    return *this;
}

bool Fonts::InitializeFreeType() {
    if (failed) return false;
    if (internal::HasFreeType()) return true;
    failed = !internal::StartFreeType() || !InitFaceList() || internal::UsedFaces(*this).empty();
    return !failed;
}

bool Fonts::InitFaceList() {
    std::fill(std::begin(faces), std::end(faces), FontFaceRec{});
    std::fill(std::begin(unused), std::end(unused), nullptr);
    char** folderFonts = GetFontFileList();
    if (folderFonts == nullptr) return false;

    // Without FreeType none of the files could be opened.
    if (internal::HasFreeType()) {
        internal::RegisteredFonts registeredFonts;
        internal::FindRegisteredFonts(registeredFonts);
        int index = 0;
        for (char** path = folderFonts; *path != nullptr; ++path)
            index = SetupFontList(path, index);
        for (const internal::OwnedText& registered : registeredFonts) {
            char* path = registered.get();
            index = SetupFontList(&path, index);
        }
    }
    FreeFontFileList(&folderFonts);
    ReduceFontListByStyles();
    return true;
}

char** Fonts::GetFontFileList() {
    internal::FolderFonts found;
    internal::FindFolderFonts(found);
    return found.Release();
}

void Fonts::FreeFontFileList(char*** list) {
    if (list == nullptr || *list == nullptr) return;
    Free(*list);
    *list = nullptr;
}

}  // namespace Vellum
