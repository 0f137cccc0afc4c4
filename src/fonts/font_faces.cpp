// SPDX-License-Identifier: MIT

// Reading font files into records.
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "fonts/free_type.h"
#include "fonts/owned_text.h"
#include "vellum/fonts.h"

#include FT_SFNT_NAMES_H
#include FT_TRUETYPE_IDS_H

namespace Vellum {

namespace {

using internal::OwnedText;

constexpr int kEnglish = 9;
constexpr int kFamilyNameId = 1;
constexpr int kStyleNameId = 2;

// The primary language identifiers of Windows.
constexpr std::pair<const char*, int> kLanguages[] = {
    {"C", kEnglish}, {"de", 7},  {"fr", 12}, {"it", 16}, {"ja", 17},    {"JaPCK", 17},
    {"ko", 18},      {"pt", 22}, {"es", 10}, {"ru", 25}, {"ZhBIG5", 4}, {"ZhGBK", 4},
};

struct CharacterMaps {
    bool hasUnicode = false;
    bool hasSymbol = false;
    uint32_t lastSymbol = 0;

    explicit CharacterMaps(FT_Face face) {
        for (FT_Int i = 0; i < face->num_charmaps; ++i) {
            const FT_Encoding encoding = face->charmaps[i]->encoding;
            if (encoding == FT_ENCODING_UNICODE) hasUnicode = true;
            if (encoding != FT_ENCODING_MS_SYMBOL) continue;
            hasSymbol = true;
            lastSymbol = static_cast<uint32_t>(i);
        }
    }
};

OwnedText CopyOfName(const char* name) { return internal::CopyOfText(name == nullptr ? "" : name); }

// The names and flags of a face; false where memory runs out.
bool Describe(FT_Face face, const char* path, FontFaceRec& record) {
    OwnedText filePath = internal::CopyOfText(path);
    OwnedText familyName = CopyOfName(face->family_name);
    OwnedText styleName = CopyOfName(face->style_name);
    if (!filePath || !familyName || !styleName) return false;
    record.filePath = filePath.release();
    record.familyName = familyName.release();
    record.styleName = styleName.release();
    record.styleFlags = static_cast<int32_t>(face->style_flags);
    return true;
}

bool IsWanted(const FT_SfntName& name, int language, int nameId) {
    return name.platform_id == TT_PLATFORM_MICROSOFT && name.encoding_id == TT_MS_ID_UNICODE_CS &&
           name.language_id == language && name.name_id == nameId && name.string_len != 0;
}

// The name's big-endian units with their bytes exchanged, and a terminator. A last byte without a partner is left out.
OwnedText LittleEndian(const FT_SfntName& name) {
    OwnedText text(new (std::nothrow) char[size_t{name.string_len} + 2]());
    if (!text) return nullptr;
    for (FT_UInt i = 0; i + 1 < name.string_len; i += 2) {
        text[i] = static_cast<char>(name.string[i + 1]);
        text[i + 1] = static_cast<char>(name.string[i]);
    }
    return text;
}

}  // namespace

int Fonts::SetupFontList(char** path, int index) {
    if (index < 0 || index >= kMaxFaces) return index;
    const int language = GetFontLocaleFlag();
    internal::OpenFace face = internal::OpenFaceOf(*path, 0);
    const FT_Long count = face ? face->num_faces : 0;
    uint32_t charmapIndex = 0;
    for (FT_Long i = 0; i < count && index < kMaxFaces; ++i) {
        if (i > 0) face = internal::OpenFaceOf(*path, i);
        if (!face) break;
        const CharacterMaps maps(face.get());
        if (!maps.hasUnicode && !maps.hasSymbol) break;
        if (maps.hasSymbol) charmapIndex = maps.lastSymbol;

        FontFaceRec record = {};
        if (!Describe(face.get(), *path, record)) break;
        record.faceIndex = static_cast<uint32_t>(i);
        record.localeFlag = language;
        record.isSymbol = maps.hasSymbol ? 1 : 0;
        record.charmapIndex = charmapIndex;
        if (language != kEnglish) {
            record.uniFamilyName = GetUnicodeForLanguageLite(face.get(), language, kFamilyNameId, &record.uniFamilyLen);
            record.uniStyleName = GetUnicodeForLanguageLite(face.get(), language, kStyleNameId, &record.uniStyleLen);
        }
        faces[index] = record;
        ++index;
    }
    return index;
}

int Fonts::GetFontLocaleFlag() {
    const char* variable = std::getenv("KVO_LANG_SUB_DIR");
    if (variable == nullptr) return kEnglish;
    for (const auto& [name, flag] : kLanguages) {
        if (std::strcmp(variable, name) == 0) return flag;
    }
    return kEnglish;
}

char* Fonts::GetUnicodeForLanguageLite(FT_FaceRec_* face, int language, int nameId, int* length) {
    *length = 0;
    const FT_UInt count = FT_Get_Sfnt_Name_Count(face);
    for (FT_UInt i = 0; i < count; ++i) {
        FT_SfntName name = {};
        if (FT_Get_Sfnt_Name(face, i, &name) != 0) return nullptr;
        if (!IsWanted(name, language, nameId)) continue;
        OwnedText text = LittleEndian(name);
        if (text) *length = static_cast<int>(name.string_len) + 2;
        return text.release();
    }
    return nullptr;
}

}  // namespace Vellum
