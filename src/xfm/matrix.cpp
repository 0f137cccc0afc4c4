// SPDX-License-Identifier: MIT
#include "vellum/matrix.h"

#include <cmath>

#include "types/trigonometry.h"

namespace Vellum {

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kPi = 3.141592653589793;

struct SineCosine {
    double sine;
    double cosine;
};

SineCosine SineCosineOf(double degrees) {
    // The library functions leave residues at the quarter-turns, which would make those matrices general ones.
    if (degrees == 0.0) return {0.0, 1.0};
    if (degrees == 90.0) return {1.0, 0.0};
    if (degrees == 180.0) return {0.0, -1.0};
    if (degrees == 270.0) return {-1.0, 0.0};
    const double radians = degrees * kRadiansPerDegree;
    return {internal::Sine(radians), internal::Cosine(radians)};
}

double SnappedToQuarterTurn(double degrees) {
    if (0.0 < degrees && degrees < 0.1) return 0.0;
    if (89.9 < degrees && degrees < 90.1) return 90.0;
    if (179.9 < degrees && degrees < 180.1) return 180.0;
    if (269.9 < degrees && degrees < 270.1) return 270.0;
    if (359.9 < degrees && degrees < 360.0) return 0.0;
    return degrees;
}

/// The quarter-turn that takes the unit x vector towards (u, v); -1 for no direction at all.
int QuarterTurn(double u, double v) {
    if (v == 0.0) return u > 0.0 ? 0 : u < 0.0 ? 2 : -1;
    return v > 0.0 ? 1 : 3;
}

Mtx2D Product(const Mtx2D& a, const Mtx2D& b) {
    Mtx2D r;
    r.m11 = a.m11 * b.m11 + a.m12 * b.m21;
    r.m12 = a.m11 * b.m12 + a.m12 * b.m22;
    r.m21 = a.m21 * b.m11 + a.m22 * b.m21;
    r.m22 = a.m21 * b.m12 + a.m22 * b.m22;
    r.dx = a.dx * b.m11 + a.dy * b.m21 + b.dx;
    r.dy = a.dx * b.m12 + a.dy * b.m22 + b.dy;
    r.mirror = a.mirror ^ b.mirror;
    r.SetType();
    return r;
}

}  // namespace

Mtx2D::Mtx2D(double ox, double oy, Mtx2DOrient o, double sx, double sy, double tx, double ty) {
    SetXfm(ox, oy, o, sx, sy, tx, ty);
}

void Mtx2D::SetIdentity() {
    if (!(*this != Mtx2D())) type = Mtx2DIdentity;
}

void Mtx2D::SetType() {
    if (m12 == 0.0 && m21 == 0.0) {
        type = Mtx2DAxisAligned;
    } else if (m11 == 0.0 && m22 == 0.0) {
        type = Mtx2DAxisSwapped;
    } else {
        type = Mtx2DGeneral;
    }
}

double Mtx2D::GetDeterminant() const { return m22 * m11 - m21 * m12; }

bool Mtx2D::ReversesOrientation() { return GetDeterminant() < 0.0; }

bool Mtx2D::operator!=(const Mtx2D& m) const {
    return m11 != m.m11 || m12 != m.m12 || m21 != m.m21 || m22 != m.m22 || dx != m.dx || dy != m.dy;
}

void Mtx2D::GetElements(double* e11, double* e12, double* e21, double* e22, double* ex, double* ey) {
    *e11 = m11;
    *e12 = m12;
    *e21 = m21;
    *e22 = m22;
    *ex = dx;
    *ey = dy;
}

void Mtx2D::GetTranslation(double& tx, double& ty) const {
    tx = dx;
    ty = dy;
}

double Mtx2D::GetScale() const { return std::sqrt(m11 * m11 + m12 * m12); }

double Mtx2D::GetRotation() const { return std::acos(m11 / GetScale()); }

void Mtx2D::GetOrientation(double* angle, int* mirrorRecord) const {
    *angle = std::atan2(m12, m11);
    *mirrorRecord = mirror;
}

void Mtx2D::GetXMirrorAndRotation(bool* mirrored, double* degrees) const {
    // A mirror in X taken off the input side leaves the first row as it is, so both cases read the same direction.
    *mirrored = GetDeterminant() < 0.0;
    const double unsignedAngle = GetRotation() * 180.0 / kPi;
    *degrees = SnappedToQuarterTurn(m12 < 0.0 ? 360.0 - unsignedAngle : unsignedAngle);
}

void Mtx2D::GetOrientationAndXMirror(bool* mirrored, int* orient) {
    *mirrored = GetDeterminant() < 0.0;
    *orient = QuarterTurn(m11, *mirrored ? -m12 : m12);
}

void Mtx2D::GetXMirrorAndOrientation(bool* mirrored, int* orient) const {
    *mirrored = GetDeterminant() < 0.0;
    *orient = QuarterTurn(m11, m12);
}

void Mtx2D::Translate(double tx, double ty) {
    dx += tx;
    dy += ty;
}

void Mtx2D::Scale(double sx, double sy) {
    m11 *= sx;
    m21 *= sx;
    dx *= sx;
    m12 *= sy;
    m22 *= sy;
    dy *= sy;
}

void Mtx2D::Rotate(double degrees, int mode) {
    const auto [sine, cosine] = SineCosineOf(degrees >= 360.0 ? degrees - 360.0 : degrees);
    const Mtx2D old = *this;
    if (mode == 1) {
        m11 = old.m11 * cosine + old.m21 * sine;
        m12 = old.m12 * cosine + old.m22 * sine;
        m21 = old.m21 * cosine - old.m11 * sine;
        m22 = old.m22 * cosine - old.m12 * sine;
    } else {
        m11 = old.m11 * cosine - old.m12 * sine;
        m12 = old.m12 * cosine + old.m11 * sine;
        m21 = old.m21 * cosine - old.m22 * sine;
        m22 = old.m22 * cosine + old.m21 * sine;
        dx = old.dx * cosine - old.dy * sine;
        dy = old.dy * cosine + old.dx * sine;
    }
    SetType();
}

void Mtx2D::ReflectInX() {
    m12 = -m12;
    m22 = -m22;
    dy = -dy;
    mirror ^= 1;
}

void Mtx2D::ReflectInY() {
    m11 = -m11;
    m21 = -m21;
    dx = -dx;
    mirror ^= 2;
}

void Mtx2D::ShearInX(double s) {
    m21 = s;
    SetType();
}

void Mtx2D::InvertYAxis(double h) {
    m22 *= -1.0;
    dy = h;
}

void Mtx2D::Orient(Mtx2DOrient o) {
    switch (o) {
        case Mtx2DOrientRot90:
            Rotate(90.0, 2);
            break;
        case Mtx2DOrientRot180:
            Rotate(180.0, 2);
            break;
        case Mtx2DOrientRot270:
            Rotate(270.0, 2);
            break;
        case Mtx2DOrientMirrorX:
            ReflectInX();
            break;
        case Mtx2DOrientMirrorY:
            ReflectInY();
            break;
        case Mtx2DOrientRot90MirrorY:
            Rotate(90.0, 2);
            ReflectInY();
            break;
        case Mtx2DOrientRot90MirrorX:
            Rotate(90.0, 2);
            ReflectInX();
            break;
        default:
            break;
    }
    SetType();
}

void Mtx2D::SetXfm(double ox, double oy, Mtx2DOrient o, double sx, double sy, double tx, double ty) {
    Identity();
    // A difference, not a negation: the origin (0, 0) must not become a negative zero.
    dx = 0.0 - ox;
    dy = 0.0 - oy;
    Orient(o);
    m11 *= sx;
    m21 *= sx;
    m12 *= sy;
    m22 *= sy;
    dx = sx * dx + tx;
    dy = sy * dy + ty;
    SetType();
}

Mtx2D& Mtx2D::Postmult(const Mtx2D& m) { return *this = Product(*this, m); }

Mtx2D& Mtx2D::Premult(const Mtx2D& m) { return *this = Product(m, *this); }

void Mtx2D::Multiply(Mtx2D& a, const Mtx2D& b, Mtx2D& r) { r = Product(a, b); }

Mtx2D Mtx2D::operator*(const Mtx2D& m) { return Product(*this, m); }

Mtx2D Mtx2D::Invert() {
    const double determinant = m11 * m22 - m12 * m21;
    Mtx2D inverse;
    inverse.m11 = m22 / determinant;
    inverse.m12 = -(m12 / determinant);
    inverse.m21 = -(m21 / determinant);
    inverse.m22 = m11 / determinant;
    inverse.dx = (dy * m21 - dx * m22) / determinant;
    inverse.dy = -((dy * m11 - dx * m12) / determinant);
    inverse.mirror = mirror;
    inverse.SetType();
    return inverse;
}

}  // namespace Vellum
