// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_SUPPORT_VTABLE_H
#define VELLUM_TESTS_SUPPORT_VTABLE_H

#include <cstddef>
#include <cstring>

namespace support {

/// The slot of a virtual member, counted from the first destructor slot. Read from the representation of a pointer to
/// member that the Itanium C++ ABI prescribes: the byte offset of the slot, marked as virtual in one or the other word.
template <class Member>
std::ptrdiff_t VtableSlot(Member member) {
    struct {
        std::ptrdiff_t function;
        std::ptrdiff_t adjustment;
    } words;
    static_assert(sizeof words == sizeof member);
    std::memcpy(&words, &member, sizeof words);
#if defined(__aarch64__)
    const std::ptrdiff_t offset = words.function;
#else
    const std::ptrdiff_t offset = words.function - 1;
#endif
    return offset / static_cast<std::ptrdiff_t>(sizeof(void*));
}

}  // namespace support

#endif
