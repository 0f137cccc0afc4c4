// SPDX-License-Identifier: MIT
#ifndef VELLUM_FONT_LIST_H
#define VELLUM_FONT_LIST_H

/// @file
/// `FontList`, a small list of distinct font names.

#include <cstdint>

#include "vellum/export.h"

namespace Vellum {

/// Distinct names in the order in which they came, up to a fixed capacity. The list owns a copy of each. A null name, a
/// name that it holds already (byte for byte: letter case counts) and a name beyond its capacity are ignored, and so is
/// one that memory runs out for.
class VELLUM_API FontList {
public:
    int32_t capacity;
    char** names;  ///< owned, as are the names, all from new[]; null where memory ran out: the list takes no name then
    int32_t count = 0;

    /// Room for 100 names.
    FontList();
    FontList(const FontList& other);
    ~FontList();
    /// Empties this list: nothing is copied but the capacity, and where that is the same already the old names are not
    /// released. A host that assigns rebuilds the list by `AddList`.
    FontList& operator=(const FontList& other);

    void AddFont(char* name);
    /// Adds the first @p n names in order.
    void AddList(char** list, int n);
    void AddList(FontList* other);
    /// The list's own array, valid until the list changes.
    VELLUM_INLINE char** GetList() const { return names; }
    VELLUM_INLINE int GetSize() const { return count; }
    /// Releases names and array and leaves the fields as they are. The destructor calls it: a host that has called it
    /// itself sets `names` to null and `count` to 0, or puts another array there, before the list is destroyed.
    void _DeleteList();
};

}  // namespace Vellum

#endif
