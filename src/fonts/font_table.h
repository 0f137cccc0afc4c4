// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_FONTS_FONT_TABLE_H
#define VELLUM_SRC_FONTS_FONT_TABLE_H

#include <algorithm>
#include <span>

#include "vellum/fonts.h"

namespace Vellum::internal {

/// The records in use.
inline std::span<const FontFaceRec> UsedFaces(const Fonts& fonts) {
    const auto isFree = [](const FontFaceRec& face) { return face.familyName == nullptr; };
    return {fonts.faces, std::find_if(fonts.faces, fonts.faces + Fonts::kMaxFaces, isFree)};
}

}  // namespace Vellum::internal

#endif
