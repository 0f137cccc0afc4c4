// SPDX-License-Identifier: MIT
#include "shapes/winding_kernels_impl.h"

namespace Vellum::internal {

namespace {

struct PlainLanes {
    using Reg = double;
    static constexpr size_t kWidth = 1;

    static Reg Fill(double v) { return v; }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        x = from[0];
        y = from[1];
    }
    static Reg Sub(Reg a, Reg b) { return a - b; }
    static Reg Mul(Reg a, Reg b) { return a * b; }
    static uint64_t Less(Reg a, Reg b) { return a < b ? 1 : 0; }
    static uint64_t AtLeast(Reg a, Reg b) { return a >= b ? 1 : 0; }
};

}  // namespace

int64_t WindingOfFewPlain(const DblPt* pts, size_t count, double x, double y) {
    int64_t winding = 0;
    const DblPt* from = &pts[count - 1];
    for (size_t i = 0; i < count; from = &pts[i++]) {
        const DblPt& to = pts[i];
        const double side = (to.x - from->x) * (y - from->y) - (x - from->x) * (to.y - from->y);
        const int isFromHigher = from->y > y;
        const int isToHigher = to.y > y;
        winding += isToHigher & ~isFromHigher & int{side >= 0.0};
        winding -= isFromHigher & ~isToHigher & int{side <= 0.0};
    }
    return winding;
}

int64_t WindingPlain(const DblPt* pts, size_t count, double x, double y) {
    return WindingLoop<PlainLanes>::Winding(pts, count, x, y);
}

}  // namespace Vellum::internal
