// SPDX-License-Identifier: MIT
#include "fonts/free_type.h"

namespace Vellum::internal {

namespace {

FT_Library library = nullptr;

}  // namespace

bool HasFreeType() { return library != nullptr; }

bool StartFreeType() { return FT_Init_FreeType(&library) == 0; }

OpenFace OpenFaceOf(const char* path, FT_Long index) {
    FT_Face face = nullptr;
    if (FT_New_Face(library, path, index, &face) != 0) return nullptr;
    return OpenFace(face);
}

}  // namespace Vellum::internal
