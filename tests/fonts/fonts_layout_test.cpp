// SPDX-License-Identifier: MIT

// The fields of the catalogue, which hosts read directly, and where they are. The compiler checks it.
#include <cstddef>
#include <type_traits>

#include "vellum/fonts.h"

namespace {

using Vellum::fnt_lst_t;
using Vellum::FontFaceRec;
using Vellum::Fonts;

// The sizes of a machine with 64-bit pointers.
constexpr bool kIs64Bit = sizeof(void*) == 8;

static_assert(!kIs64Bit || sizeof(fnt_lst_t) == 24);
static_assert(offsetof(fnt_lst_t, face_name) == 0 && offsetof(fnt_lst_t, uni_name) == sizeof(void*) &&
              offsetof(fnt_lst_t, file_name) == 2 * sizeof(void*));
static_assert(std::is_same_v<::fnt_lst_t, Vellum::fnt_lst_t>);

static_assert(!kIs64Bit || sizeof(FontFaceRec) == 88);
static_assert(!kIs64Bit || (offsetof(FontFaceRec, filePath) == 0 && offsetof(FontFaceRec, faceIndex) == 8 &&
                            offsetof(FontFaceRec, familyName) == 16 && offsetof(FontFaceRec, styleName) == 24 &&
                            offsetof(FontFaceRec, localeFlag) == 32 && offsetof(FontFaceRec, uniFamilyLen) == 36 &&
                            offsetof(FontFaceRec, uniFamilyName) == 40 && offsetof(FontFaceRec, uniStyleLen) == 48 &&
                            offsetof(FontFaceRec, uniStyleName) == 56 && offsetof(FontFaceRec, styleFlags) == 64 &&
                            offsetof(FontFaceRec, reserved) == 72 && offsetof(FontFaceRec, isSymbol) == 80 &&
                            offsetof(FontFaceRec, charmapIndex) == 84));
static_assert(sizeof(FontFaceRec::reserved) == 8 && sizeof(FontFaceRec::isSymbol) == 1);
static_assert(std::is_same_v<decltype(FontFaceRec::faceIndex), uint32_t> &&
              std::is_same_v<decltype(FontFaceRec::charmapIndex), uint32_t>);

static_assert(Fonts::kMaxFaces == 4096);
static_assert(!kIs64Bit || (offsetof(Fonts, faces) == 0 && offsetof(Fonts, unused) == 360448 &&
                            offsetof(Fonts, regular) == 361248 && offsetof(Fonts, bold) == 377632 &&
                            offsetof(Fonts, italic) == 394016 && offsetof(Fonts, boldItalic) == 410400 &&
                            offsetof(Fonts, sentinel) == 426784 && sizeof(Fonts) == 426792));

static_assert(!std::is_polymorphic_v<Fonts> && !std::is_copy_constructible_v<Fonts>);
static_assert(std::is_copy_assignable_v<Fonts> && std::is_default_constructible_v<Fonts>);

}  // namespace
