// SPDX-License-Identifier: MIT
#ifndef VELLUM_RESTRICTED_TEXT_H
#define VELLUM_RESTRICTED_TEXT_H

/// @file
/// `RestrictedTextGeom`, a text confined to a box.

#include <cstdint>

#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/shape.h"
#include "vellum/ucs2_string.h"

namespace Vellum {

/// A text of 16-bit characters with the box that it must fit. It does no layout or measuring of its own. Where memory
/// runs out it holds no string.
class VELLUM_API RestrictedTextGeom : public Shape {
public:
    DblPt start;  ///< the anchor of the text
    double width;
    double height;
    uint32_t stringId;
    bool final;
    UCS2String* string;  ///< owned; may be null

    VELLUM_INLINE RestrictedTextGeom() : width(0.0), height(0.0), stringId(0), final(false), string(nullptr) {}
    /// A final text. The characters of @p text up to its first 0 are copied, as `UCS2String` does.
    RestrictedTextGeom(DblPt* startPt, double boxWidth, double boxHeight, unsigned id, unsigned short* text);
    RestrictedTextGeom(const RestrictedTextGeom& o);
    RestrictedTextGeom& operator=(const RestrictedTextGeom& o);
    ~RestrictedTextGeom() override;

    VELLUM_INLINE const DblPt& Start() const { return start; }
    VELLUM_INLINE double Width() const { return width; }
    VELLUM_INLINE double Height() const { return height; }
    VELLUM_INLINE unsigned StringId() const { return stringId; }
    VELLUM_INLINE bool Final() const { return final; }
    /// The text, owned by this object; may be null.
    VELLUM_INLINE UCS2String* String() const { return string; }

    VELLUM_INLINE void SetStart(DblPt& p) { start = p; }
    VELLUM_INLINE void SetWidth(double w) { width = w; }
    VELLUM_INLINE void SetHeight(double h) { height = h; }
    VELLUM_INLINE void SetStringId(unsigned id) { stringId = id; }
    VELLUM_INLINE void SetFinal(bool isFinal) { final = isFinal; }
    /// Replaces the text, also by a piece of the one it holds.
    void SetString(unsigned short* text);
    /// Moves the anchor.
    VELLUM_INLINE void Translate(const DblPt& d) { start += d; }

    /// The length of the text. @p out receives a new block with the text and a terminating 0, which the caller releases
    /// with delete[]; it holds zeros where the string has no characters. Without a string, or without memory, the
    /// result is 0 and @p out null.
    unsigned StringToUChar(unsigned short** out) const;
};

}  // namespace Vellum

#endif
