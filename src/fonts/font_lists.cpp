// SPDX-License-Identifier: MIT

// The lists that the catalogue hands out.
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>
#include <span>
#include <utility>

#include "fonts/font_table.h"
#include "fonts/owned_text.h"
#include "vellum/fonts.h"

namespace Vellum {

namespace {

using internal::OwnedText;

constexpr const char* kStrokeFonts[] = {
    "Hershey", "HersheyBold", "HersheyItalic", "Iges1001", "Iges1002", "Iges1003", "HersheyMonospace",
};

void Free(fnt_lst_t* list) {
    for (fnt_lst_t* entry = list; entry->face_name != nullptr; ++entry) {
        delete[] entry->face_name;
        delete[] entry->uni_name;
        delete[] entry->file_name;
    }
    delete[] list;
}

// A list that is being made; it is released unless it is handed out. Once memory has run out there is nothing to hand
// out.
class ListWriter {
public:
    explicit ListWriter(size_t entries) : list_(new (std::nothrow) fnt_lst_t[entries + 1]()), next_(list_) {}
    ~ListWriter() {
        if (list_ != nullptr) Free(list_);
    }
    ListWriter(const ListWriter&) = delete;
    ListWriter& operator=(const ListWriter&) = delete;

    void Append(const char* name) {
        if (list_ == nullptr) return;
        Finish(internal::CopyOfText(name), nullptr, nullptr);
    }

    void Append(const FontFaceRec& face) {
        if (list_ == nullptr) return;
        const bool isLocalized = face.uniFamilyName != nullptr && face.uniFamilyLen > 0;
        OwnedText localized;
        if (isLocalized) {
            localized = internal::CopyOfBytes(face.uniFamilyName, static_cast<size_t>(face.uniFamilyLen));
        }
        OwnedText file = internal::CopyOfText(face.filePath);
        const bool isWhole = file && (localized || !isLocalized);
        Finish(isWhole ? internal::CopyOfText(face.familyName) : nullptr, std::move(localized), std::move(file));
    }

    fnt_lst_t* HandOut() { return std::exchange(list_, nullptr); }

private:
    // Without a name memory has run out.
    void Finish(OwnedText name, OwnedText localized, OwnedText file) {
        if (!name) {
            Free(std::exchange(list_, nullptr));
            return;
        }
        *next_ = {name.release(), localized.release(), file.release()};
        ++next_;
    }

    fnt_lst_t* list_;
    fnt_lst_t* next_;
};

// A face name, and the record that it stands in: null for the stroke fonts.
struct NamedFace {
    const char* name;
    const FontFaceRec* record;
    size_t rank;
};

// Face names as they come, at most all that there can be.
class FaceNames {
public:
    explicit operator bool() const { return names_ != nullptr; }

    void Add(const char* name, const FontFaceRec* record) {
        names_[count_] = {name, record, count_};
        ++count_;
    }

    // Each name once, as it was first added, in ascending order.
    std::span<const NamedFace> Distinct() {
        NamedFace* const end = names_.get() + count_;
        std::sort(names_.get(), end, [](const NamedFace& a, const NamedFace& b) {
            const int order = std::strcmp(a.name, b.name);
            return order != 0 ? order < 0 : a.rank < b.rank;
        });
        const auto isSame = [](const NamedFace& a, const NamedFace& b) { return std::strcmp(a.name, b.name) == 0; };
        return {names_.get(), std::unique(names_.get(), end, isSame)};
    }

private:
    static constexpr size_t kMost = Fonts::kMaxFaces + std::size(kStrokeFonts);

    std::unique_ptr<NamedFace[]> names_{new (std::nothrow) NamedFace[kMost]};
    size_t count_ = 0;
};

bool IsListed(const FontFaceRec& face) {
    return *face.familyName != '\0' && std::strchr(face.familyName, '?') == nullptr;
}

}  // namespace

fnt_lst_t* Fonts::GetFontFaceList() {
    if (!InitializeFreeType()) return nullptr;
    FaceNames names;
    if (!names) return nullptr;
    for (const FontFaceRec& face : internal::UsedFaces(*this)) {
        if (IsListed(face)) names.Add(face.familyName, &face);
    }
    for (const char* name : kStrokeFonts)
        names.Add(name, nullptr);

    const std::span<const NamedFace> distinct = names.Distinct();
    ListWriter list(distinct.size());
    for (const NamedFace& face : distinct) {
        if (face.record == nullptr) {
            list.Append(face.name);
        } else {
            list.Append(*face.record);
        }
    }
    return list.HandOut();
}

fnt_lst_t* Fonts::GetStylesForFontFace(char* face) {
    if (face == nullptr || !InitializeFreeType()) return nullptr;
    const std::span<const FontFaceRec> used = internal::UsedFaces(*this);
    const auto isStyle = [face](const FontFaceRec& record) {
        return std::strcmp(record.familyName, face) == 0 && *record.styleName != '\0';
    };
    const auto count = static_cast<size_t>(std::count_if(used.begin(), used.end(), isStyle));
    if (count == 0) return nullptr;
    ListWriter list(count);
    for (const FontFaceRec& record : used) {
        if (isStyle(record)) list.Append(record.styleName);
    }
    return list.HandOut();
}

void Fonts::DeleteFontFaceList(fnt_lst_t* list) {
    if (list != nullptr) Free(list);
}

}  // namespace Vellum
