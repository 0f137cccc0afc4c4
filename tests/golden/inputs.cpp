// SPDX-License-Identifier: MIT
#include "golden/inputs.h"

#include <bit>
#include <cmath>
#include <limits>

namespace golden {

using Vellum::AlignedDblRect;
using Vellum::DblPt;
using Vellum::DblRect;
using Vellum::Mtx2D;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSpecial[] = {
    kNan,    kInfinity, -kInfinity, 0.0,     -0.0,          -0.0,         kLargest,
    -1e308,  5e-324,    -5e-324,    1e-308,  1e154,         -1e154,       1e-160,
    0.5,     -0.5,      1.5,        -2.5,    2147483647.5,  2147483646.5, -2147483648.5,
    32767.5, 268435456, 0x1p52,     0x1p-23, 0x1.fffffep-2, 0x1p-52,      0x1.fffffffffffffp-2};

// Sines and cosines of turns, and their hypotenuses.
constexpr double kTurns[][3] = {{3, 4, 5},    {-4, 3, 5}, {5, -12, 13}, {-8, -15, 17},
                                {20, 21, 29}, {1, 0, 1},  {0, -1, 1}};

uint64_t SeedOf(std::string_view name) {
    uint64_t seed = 0xcbf29ce484222325;
    for (const char c : name)
        seed = (seed ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return seed;
}

}  // namespace

Inputs::Inputs(std::string_view family) : random(SeedOf(family)) {}

double Inputs::AnyBits() {
    const uint64_t high = random.Below(size_t{1} << 32);
    const uint64_t low = random.Below(size_t{1} << 32);
    return std::bit_cast<double>(high << 32 | low);
}

double Inputs::Coordinate(Kind kind) {
    switch (kind) {
        case Kind::SmallGrid:
            return random.Between(-2, 5);
        case Kind::HalfGrid:
            return random.Between(-9, 9) * 0.5;
        case Kind::Plane:
            return random.Within(-10, 10);
        case Kind::ManyScales: {
            const double mantissa = random.Within(-10, 10);
            return std::ldexp(mantissa, random.Between(-40, 40));
        }
        case Kind::FarOff:
            return 1e6 + random.Between(0, 40) * 0.1;
        case Kind::NearTolerance: {
            const double whole = random.Between(0, 4);
            return whole + random.Between(-3, 3) * 0x1p-23;
        }
        case Kind::Special:
            return random.OneIn(3) ? random.OneOf(kSpecial) : random.Between(-2, 5);
        default:
            return AnyBits();
    }
}

DblPt Inputs::Point(Kind kind) {
    const double x = Coordinate(kind);
    return DblPt(x, Coordinate(kind));
}

std::vector<DblPt> Inputs::Points(Kind kind, size_t count) {
    std::vector<DblPt> points;
    for (size_t i = 0; i < count; ++i) {
        DblPt p = Point(kind);
        if (i > 0 && random.OneIn(8)) p = points.back();
        if (i > 0 && random.OneIn(16)) p = points[random.Below(i)];
        if (i > 0 && random.OneIn(6)) p.y = points.back().y;
        points.push_back(p);
    }
    return points;
}

std::vector<DblPt> Inputs::Ring(Kind kind, size_t count) {
    const DblPt centre = Point(kind);
    const double size = Coordinate(kind);
    std::vector<DblPt> points;
    for (size_t i = 0; i < count; ++i) {
        // Round the sides of a diamond, nearer and farther.
        const double way = 4.0 * static_cast<double>(i) / static_cast<double>(count);
        const int side = static_cast<int>(way);
        const double part = way - side;
        const double ahead = side == 0 || side == 3 ? 1 : -1;
        const double x = side % 2 == 0 ? 1 - part : part;
        const double up = side < 2 ? 1 : -1;
        const double reach = size * random.Within(0.6, 1.0);
        points.emplace_back(centre.x + reach * (ahead * x), centre.y + reach * (up * (1 - x)));
    }
    return points;
}

double Inputs::Tolerance() {
    constexpr double kTolerances[] = {0.0, -1.0, 1e-9, 0x1p-23, 2e-7, 0.05, 0.3,   0.5,       1.0,
                                      1.5, 2.0,  5.0,  40.0,    1e7,  1e20, 1e308, kInfinity, kNan};
    return random.OneOf(kTolerances);
}

AlignedDblRect Inputs::Box(Kind kind) {
    const DblPt a = Point(kind);
    const DblPt b = Point(kind);
    AlignedDblRect box(a, b);
    if (random.OneIn(4)) box.TSet(a, b);
    return box;
}

DblRect Inputs::Rectangle(Kind kind) {
    const DblPt a = Point(kind);
    const DblPt b = Point(kind);
    DblRect upright(AlignedDblRect(a, b).ll, AlignedDblRect(a, b).ur);
    switch (random.Below(4)) {
        case 0:
            return upright;
        case 1: {
            const DblPt c = Point(kind);
            return DblRect(a, b, c, Point(kind));
        }
        default: {
            const double* const turn = random.OneOf(kTurns);
            const double cosine = turn[0] / turn[2];
            const double sine = turn[1] / turn[2];
            for (const unsigned i : {1U, 2U, 3U}) {
                DblPt& p = upright.GetPt(i);
                const DblPt d(p.x - upright.p0.x, p.y - upright.p0.y);
                p.Set(upright.p0.x + (d.x * cosine - d.y * sine), upright.p0.y + (d.x * sine + d.y * cosine));
            }
            return upright;
        }
    }
}

Mtx2D Inputs::Matrix(Kind kind) {
    Mtx2D m;
    const size_t way = random.Below(8);
    for (double* const element : {&m.m11, &m.m12, &m.m21, &m.m22, &m.dx, &m.dy})
        *element = Coordinate(kind);
    m.mirror = random.Between(0, 3);
    if (way < 3) m.m12 = m.m21 = random.OneIn(2) ? 0.0 : -0.0;
    if (way == 3 || way == 4) m.m11 = m.m22 = random.OneIn(2) ? 0.0 : -0.0;
    m.SetType();
    if (way == 5) m.type = random.Between(-1, 4);
    if (way == 6 && random.OneIn(4)) {
        m.Identity();
        m.SetIdentity();
    }
    return m;
}

Mtx2D Inputs::PlainMatrix() {
    Mtx2D m;
    const double* const turn = random.OneOf(kTurns);
    const double scale = random.Within(0.5, 20);
    m.m11 = m.m22 = scale * (turn[0] / turn[2]);
    m.m12 = scale * (turn[1] / turn[2]);
    m.m21 = -m.m12;
    m.dx = random.Within(-100, 100);
    m.dy = random.Within(-100, 100);
    if (random.OneIn(3)) m.ReflectInX();
    m.SetType();
    return m;
}

}  // namespace golden
