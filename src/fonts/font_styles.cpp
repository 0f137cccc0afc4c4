// SPDX-License-Identifier: MIT

// The classes of styles.
#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstring>

#include "fonts/font_table.h"
#include "vellum/fonts.h"

namespace Vellum {

namespace {

constexpr int32_t kItalicFlag = 1;
constexpr int32_t kBoldFlag = 2;

// How much of a text is looked at.
constexpr size_t kMostCharacters = 259;

using Text = char[kMostCharacters + 1];

void Lower(const char* text, Text& lowered) {
    const size_t length = std::min(std::strlen(text), kMostCharacters);
    std::transform(text, text + length, lowered,
                   [](char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); });
    lowered[length] = '\0';
}

// Fills one array of indices.
class IndexWriter {
public:
    IndexWriter(uint32_t* indices, int32_t endMark)
        : next_(indices), end_(indices + Fonts::kMaxFaces), endMark_(static_cast<uint32_t>(endMark)) {}

    void Append(uint32_t index) { *next_++ = index; }

    void Finish() {
        if (next_ != end_) *next_ = endMark_;
    }

private:
    uint32_t* next_;
    uint32_t* end_;
    uint32_t endMark_;
};

}  // namespace

void Fonts::ReduceFontListByStyles() {
    const auto isNamed = [this](const FontFaceRec& face, const char* word) {
        return StrIStr(face.familyName, word) || StrIStr(face.styleName, word);
    };
    const auto isBold = [&](const FontFaceRec& face) {
        return (face.styleFlags & kBoldFlag) != 0 || isNamed(face, "bold");
    };
    const auto isItalic = [&](const FontFaceRec& face) {
        return (face.styleFlags & kItalicFlag) != 0 || isNamed(face, "italic") || isNamed(face, "oblique");
    };

    IndexWriter regularFaces(regular, sentinel);
    IndexWriter boldFaces(bold, sentinel);
    IndexWriter italicFaces(italic, sentinel);
    IndexWriter boldItalicFaces(boldItalic, sentinel);
    uint32_t index = 0;
    for (const FontFaceRec& face : internal::UsedFaces(*this)) {
        IndexWriter& upright = isBold(face) ? boldFaces : regularFaces;
        IndexWriter& slanted = isBold(face) ? boldItalicFaces : italicFaces;
        (isItalic(face) ? slanted : upright).Append(index);
        ++index;
    }
    for (IndexWriter* writer : {&regularFaces, &boldFaces, &italicFaces, &boldItalicFaces})
        writer->Finish();
}

bool Fonts::StrIStr(const char* text, const char* part) {
    Text loweredText;
    Text loweredPart;
    Lower(text, loweredText);
    Lower(part, loweredPart);
    return std::strstr(loweredText, loweredPart) != nullptr;
}

}  // namespace Vellum
