// SPDX-License-Identifier: MIT
#ifndef VELLUM_UCS2_STRING_H
#define VELLUM_UCS2_STRING_H

/// @file
/// `UCS2String`, an owned string of 16-bit characters.

#include <cstdint>

#include "vellum/export.h"

namespace Vellum {

/// The text of a `RestrictedTextGeom`: it copies, measures and exposes its characters and does nothing else.
///
/// Use `Length()`, not a terminator, to find the end: a string made by assignment has none, and hosts that exchange
/// such blocks count on their exact size. Where memory runs out a string is empty.
class VELLUM_API UCS2String {
public:
    uint16_t* buffer;  ///< the characters, from new[]; may be null where length is 0
    uint16_t length;   ///< how many, without the terminator

    /// Copies @p s up to its first 0, at most 513 characters, and terminates the copy. Null makes an empty string; an
    /// empty text makes one with a block that holds the terminator alone.
    explicit UCS2String(const unsigned short* s);
    /// A terminated copy; without a block where @p other has no characters.
    UCS2String(const UCS2String& other);
    /// The block becomes exactly as long as the text, without a terminator; null where @p other has no characters.
    UCS2String& operator=(const UCS2String& other);
    ~UCS2String();

    VELLUM_INLINE unsigned Length() const { return length; }
    /// The characters, owned by the string; may be null.
    VELLUM_INLINE unsigned short* UString() const { return buffer; }

protected:
    VELLUM_INLINE UCS2String() : buffer(nullptr), length(0) {}
};

}  // namespace Vellum

#endif
