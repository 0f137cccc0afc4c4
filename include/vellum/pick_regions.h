// SPDX-License-Identifier: MIT
#ifndef VELLUM_PICK_REGIONS_H
#define VELLUM_PICK_REGIONS_H

/// @file
/// The area around the cursor in which a click selects an entity. The order of the virtual operations is part of the
/// binary interface, as for the shapes (see `vellum/shape.h`).

#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/rectangles.h"

namespace Vellum {

/// A region that can be picked in.
class VELLUM_API PickRegion {
public:
    VELLUM_INLINE PickRegion() {}
    VELLUM_INLINE PickRegion(const PickRegion&) {}
    VELLUM_INLINE PickRegion& operator=(const PickRegion&) { return *this; }
    VELLUM_INLINE virtual ~PickRegion() {}

    /// Whether @p p lies in the region, grown by @p tol.
    virtual bool Contains(DblPt& p, double tol) = 0;
    /// The same test for a loose point.
    virtual bool Contains(double x, double y, double tol) = 0;
    /// Keeps its slot for hosts' regions; the library never calls it and no region of its own defines it.
    virtual void Reserved() = 0;
    virtual double Top() const = 0;
    virtual double Bottom() const = 0;
    virtual double Left() const = 0;
    virtual double Right() const = 0;
};

/// An upright rectangle to pick in. A host derives from it and defines `Reserved`.
class VELLUM_API PickRect : public PickRegion {
public:
    AlignedDblRect box;

    /// The corners may be given in any order.
    VELLUM_INLINE PickRect(DblPt& a, DblPt& b) : box(a, b) {}
    VELLUM_INLINE PickRect(double x1, double y1, double x2, double y2) : box(x1, y1, x2, y2) {}
    VELLUM_INLINE PickRect(const PickRect& r) : PickRegion(r), box(r.box) {}
    VELLUM_INLINE PickRect& operator=(const PickRect& r) {
        box = r.box;
        return *this;
    }
    VELLUM_INLINE ~PickRect() override {}

    /// Edges count as inside; @p tol grows the box on all sides.
    bool Contains(DblPt& p, double tol) override;
    bool Contains(double x, double y, double tol) override;
    double Top() const override;
    double Bottom() const override;
    double Left() const override;
    double Right() const override;
    /// Writes the lower-left and the upper-right corner.
    void GetPoints(DblPt* ll, DblPt* ur) const;

protected:
    VELLUM_INLINE PickRect() {}
};

}  // namespace Vellum

#endif
