// SPDX-License-Identifier: MIT
#include "vellum/font_list.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

#include "fonts/owned_text.h"

namespace Vellum {

namespace {

constexpr int32_t kDefaultCapacity = 100;

char** NewArray(int32_t capacity) {
    return capacity < 0 ? nullptr : new (std::nothrow) char*[static_cast<size_t>(capacity)]();
}

}  // namespace

FontList::FontList() : capacity(kDefaultCapacity), names(NewArray(kDefaultCapacity)) {}

FontList::FontList(const FontList& other) : capacity(other.capacity), names(NewArray(other.capacity)) {
    AddList(other.names, other.count);
}

FontList::~FontList() { _DeleteList(); }

FontList& FontList::operator=(const FontList& other) {
    if (this == &other) return *this;
    if (capacity != other.capacity) {
        _DeleteList();
        capacity = other.capacity;
        names = NewArray(capacity);
    }
    // Of an array of the right size the names are not released: a host may have taken them over by `GetList`.
    count = 0;
    return *this;
}

void FontList::AddFont(char* name) {
    if (names == nullptr || count >= capacity || name == nullptr) return;
    const auto isName = [name](const char* held) { return std::strcmp(held, name) == 0; };
    if (std::any_of(names, names + count, isName)) return;
    char* copy = internal::CopyOfText(name).release();
    if (copy == nullptr) return;
    names[count] = copy;
    ++count;
}

void FontList::AddList(char** list, int n) {
    for (int i = 0; i < n; ++i)
        AddFont(list[i]);
}

void FontList::AddList(FontList* other) { AddList(other->names, other->count); }

void FontList::_DeleteList() {
    for (int32_t i = 0; i < count; ++i)
        delete[] names[i];
    delete[] names;
}

}  // namespace Vellum
