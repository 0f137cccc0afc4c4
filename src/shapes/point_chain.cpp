// SPDX-License-Identifier: MIT
#include "shapes/point_chain.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "vellum/geometry.h"
#include "vellum/matrix.h"

namespace Vellum::internal {

namespace {

// Null, with the block as it was, where there is no memory for that many points or no count of 32 bits. A block of
// no points is not asked for: the allocator would free the block and answer with null.
DblPt* Resized(DblPt* block, size_t count) {
    constexpr size_t kMost = std::min<size_t>(UINT32_MAX, SIZE_MAX / sizeof(DblPt));
    return count > kMost ? nullptr : static_cast<DblPt*>(std::realloc(block, count * sizeof(DblPt)));
}

}  // namespace

bool PointChain::Allocate(size_t count) const {
    if (count == 0) return false;
    pts = Resized(nullptr, count);
    if (pts == nullptr) return false;
    nPts = static_cast<uint32_t>(count);
    return true;
}

void PointChain::CopyFrom(std::span<const DblPt> points) const {
    if (Allocate(points.size())) std::copy(points.begin(), points.end(), pts);
}

void PointChain::Assign(std::span<const DblPt> points, const AlignedDblRect& box) const {
    if (points.empty()) {
        Release();
    } else {
        DblPt* const resized = Resized(pts, points.size());
        if (resized == nullptr) return;
        pts = resized;
        nPts = static_cast<uint32_t>(points.size());
        std::copy(points.begin(), points.end(), pts);
    }
    extents = box;
}

void PointChain::Release() const {
    std::free(pts);
    pts = nullptr;
    nPts = 0;
}

bool PointChain::InsertAt(uint32_t i, const DblPt& p) const {
    const DblPt inserted = p;
    DblPt* const grown = Resized(pts, size_t{nPts} + 1);
    if (grown == nullptr) return false;
    pts = grown;
    std::copy_backward(pts + i, pts + nPts, pts + nPts + 1);
    pts[i] = inserted;
    extents += inserted;
    ++nPts;
    return true;
}

void PointChain::MoveVertexTo(unsigned i, const DblPt& p) const {
    if (IsEmpty() || i >= nPts) return;
    pts[i] = p;
    RecalcExtents();
}

void PointChain::RecalcExtents() const { extents = BoxOf(nPts, PointsIn(pts)); }

void PointChain::ApplyTransform(const Mtx2D& m) const {
    if (IsEmpty()) return;
    m.RealXfmPtsExt(static_cast<int>(nPts), pts, extents.ll.x, extents.ll.y, extents.ur.x, extents.ur.y);
}

bool HasVertex(std::span<const DblPt> points, const DblPt& p) {
    return std::any_of(points.begin(), points.end(), [&](const DblPt& own) { return own.IsExactly(p); });
}

DblPt Centroid(std::span<const DblPt> points) {
    DblPt sum;
    for (const DblPt& p : points)
        sum += p;
    const double count = static_cast<double>(points.size());
    return DblPt(sum.x / count, sum.y / count);
}

DblPt CenterOf(const AlignedDblRect& box) {
    return DblPt(box.ll.x + std::fabs(box.ur.x - box.ll.x) * 0.5, box.ll.y + std::fabs(box.ur.y - box.ll.y) * 0.5);
}

void Print(std::span<const DblPt> points) {
    if (points.empty()) return;
    DbgPrintf("DblPt polyline[%d] = {\n", static_cast<int>(points.size()));
    for (const DblPt& p : points.first(points.size() - 1))
        DbgPrintf("DblPt(%lf, %lf),\n", p.x, p.y);
    DbgPrintf("DblPt(%lf, %lf)\n", points.back().x, points.back().y);
    DbgPrintf("};\n\n");
}

}  // namespace Vellum::internal
