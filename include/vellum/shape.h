// SPDX-License-Identifier: MIT
#ifndef VELLUM_SHAPE_H
#define VELLUM_SHAPE_H

/// @file
/// The two abstract classes at the root of the shape tree. The order of their virtual operations is part of the binary
/// interface: the slots are those that the Itanium C++ ABI gives them (two for the destructor, then one for each
/// operation as declared), on Windows too, where MinGW shares that ABI. A host needs a compiler that follows it.

#include "vellum/export.h"
#include "vellum/points.h"

namespace Vellum {

class Mtx2D;

/// The common base of every shape. It owns nothing; any shape may be destroyed through it.
class VELLUM_API Shape {
public:
    VELLUM_INLINE Shape() {}
    VELLUM_INLINE Shape(const Shape&) {}
    VELLUM_INLINE Shape& operator=(const Shape&) { return *this; }
    VELLUM_INLINE virtual ~Shape() {}
};

/// A shape that encloses an area.
class VELLUM_API ClosedShape : public Shape {
public:
    VELLUM_INLINE ClosedShape() {}
    VELLUM_INLINE ClosedShape(const ClosedShape& s) : Shape(s) {}
    /// Copies nothing: the geometry belongs to the derived class.
    VELLUM_INLINE ClosedShape& operator=(const ClosedShape&) { return *this; }
    VELLUM_INLINE ~ClosedShape() override {}

    /// A new copy of the same dynamic type, owned by the caller; null where memory runs out.
    virtual ClosedShape* Clone() const = 0;
    /// Writes the shape to the debugger output as a C initialiser that can be pasted into test code.
    virtual void Print() const = 0;
    /// Whether @p p lies in the shape, within @p tol where the shape honours a tolerance.
    virtual bool Contains(const DblPt& p, double tol) const = 0;
    /// The same test for a loose point.
    virtual bool Contains(double x, double y, double tol) const = 0;
    virtual void GetCentroid(DblPt& out) const = 0;
    /// Replaces the geometry by its image under @p m.
    virtual void ApplyTransform(const Mtx2D* m) = 0;
};

}  // namespace Vellum

#endif
