// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_FONTS_FREE_TYPE_H
#define VELLUM_SRC_FONTS_FREE_TYPE_H

#include <ft2build.h>

#include <memory>
#include <type_traits>

#include FT_FREETYPE_H

namespace Vellum::internal {

struct FaceCloser {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};

using OpenFace = std::unique_ptr<std::remove_pointer_t<FT_Face>, FaceCloser>;

/// Whether FreeType has started in this process.
bool HasFreeType();

/// Starts FreeType, which then stays for the life of the process.
bool StartFreeType();

/// Null where FreeType has not started or cannot open the face.
OpenFace OpenFaceOf(const char* path, FT_Long index);

}  // namespace Vellum::internal

#endif
