// SPDX-License-Identifier: MIT
#include "shapes/clearance_kernels_impl.h"

namespace Vellum::internal {
namespace {

struct PlainLanes {
    struct Reg {
        double lane[8];
    };
    using Mask = unsigned;

    static Reg Fill(double v) { return {{v, v, v, v, v, v, v, v}}; }
    static Reg Load(const double* from) {
        return Each([&](size_t i) { return from[i]; });
    }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        x = Each([&](size_t i) { return from[2 * i]; });
        y = Each([&](size_t i) { return from[2 * i + 1]; });
    }
    static void Store(double* to, const Reg& a) {
        for (size_t i = 0; i < 8; ++i)
            to[i] = a.lane[i];
    }
    static Reg Add(const Reg& a, const Reg& b) {
        return Each([&](size_t i) { return a.lane[i] + b.lane[i]; });
    }
    static Reg Sub(const Reg& a, const Reg& b) {
        return Each([&](size_t i) { return a.lane[i] - b.lane[i]; });
    }
    static Reg Mul(const Reg& a, const Reg& b) {
        return Each([&](size_t i) { return a.lane[i] * b.lane[i]; });
    }
    static Reg Div(const Reg& a, const Reg& b) {
        return Each([&](size_t i) { return a.lane[i] / b.lane[i]; });
    }
    static Reg Abs(const Reg& a) {
        return Each([&](size_t i) { return __builtin_fabs(a.lane[i]); });
    }
    static Reg Min(const Reg& a, const Reg& b) {
        return Each([&](size_t i) { return a.lane[i] < b.lane[i] ? a.lane[i] : b.lane[i]; });
    }
    static Reg Max(const Reg& a, const Reg& b) {
        return Each([&](size_t i) { return a.lane[i] > b.lane[i] ? a.lane[i] : b.lane[i]; });
    }
    static Mask Less(const Reg& a, const Reg& b) {
        return Where([&](size_t i) { return a.lane[i] < b.lane[i]; });
    }
    static Mask NotAbove(const Reg& a, const Reg& b) {
        return Where([&](size_t i) { return a.lane[i] <= b.lane[i]; });
    }
    static Mask Equal(const Reg& a, const Reg& b) {
        return Where([&](size_t i) { return a.lane[i] == b.lane[i]; });
    }
    static Mask And(Mask a, Mask b) { return a & b; }
    static Mask Or(Mask a, Mask b) { return a | b; }
    static Reg Select(Mask where, const Reg& a, const Reg& b) {
        return Each([&](size_t i) { return (where >> i & 1) != 0 ? a.lane[i] : b.lane[i]; });
    }
    static unsigned Bits(Mask a) { return a; }
    static void LowestPair(const Reg& a, double& even, double& odd) {
        even = a.lane[0];
        odd = a.lane[1];
        for (size_t i = 2; i < 8; i += 2) {
            if (a.lane[i] < even) even = a.lane[i];
            if (a.lane[i + 1] < odd) odd = a.lane[i + 1];
        }
    }
    static void HighestPair(const Reg& a, double& even, double& odd) {
        even = a.lane[0];
        odd = a.lane[1];
        for (size_t i = 2; i < 8; i += 2) {
            if (a.lane[i] > even) even = a.lane[i];
            if (a.lane[i + 1] > odd) odd = a.lane[i + 1];
        }
    }

private:
    template <class Value>
    static Reg Each(Value value) {
        Reg all;
        for (size_t i = 0; i < 8; ++i)
            all.lane[i] = value(i);
        return all;
    }
    template <class Condition>
    static Mask Where(Condition condition) {
        Mask bits = 0;
        for (size_t i = 0; i < 8; ++i)
            bits |= (condition(i) ? 1u : 0u) << i;
        return bits;
    }
};

}  // namespace

constinit const ClearanceKernels kClearanceKernelsPlain = ClearanceKernelLoops<PlainLanes>::kTable;

}  // namespace Vellum::internal
