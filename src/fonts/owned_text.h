// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_FONTS_OWNED_TEXT_H
#define VELLUM_SRC_FONTS_OWNED_TEXT_H

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>

namespace Vellum::internal {

/// A block of text while the library holds it; hosts get it by `release()`.
using OwnedText = std::unique_ptr<char[]>;

/// Null where memory runs out.
inline OwnedText CopyOfBytes(const char* bytes, size_t size) {
    OwnedText copy(new (std::nothrow) char[size]);
    if (copy) std::memcpy(copy.get(), bytes, size);
    return copy;
}

/// Null where memory runs out.
inline OwnedText CopyOfText(const char* text) { return CopyOfBytes(text, std::strlen(text) + 1); }

}  // namespace Vellum::internal

#endif
