// SPDX-License-Identifier: MIT
#include "point_set.h"

#include <limits>
#include <string>

#include "error.h"

namespace tool {

namespace {

constexpr uint32_t kInside = 0;
constexpr uint32_t kLast = 2;

bool EndsRing(uint32_t code) { return code == kLast || code == 3; }

}  // namespace

void PointSet::Reset(std::size_t capacity) {
    if (capacity > static_cast<std::size_t>(std::numeric_limits<int32_t>::max())) {
        throw Error("a polygon has too many points to be drawn");
    }
    if (points_.size() < capacity) {
        points_.resize(capacity);
        codes_.resize(capacity);
    }
    record_ = {0, points_.data(), codes_.data()};
}

void PointSet::Append(const Points& ring) {
    for (const Vellum::DblPt& p : ring) {
        record_.pts[record_.numPts] = {p.x, p.y};
        record_.codes[record_.numPts] = kInside;
        ++record_.numPts;
    }
    if (!ring.empty()) record_.codes[record_.numPts - 1] = kLast;
}

std::vector<Points> PointSet::Rings() const {
    std::vector<Points> rings;
    Points ring;
    for (int32_t i = 0; i < record_.numPts; ++i) {
        ring.emplace_back(record_.pts[i].x, record_.pts[i].y);
        if (EndsRing(record_.codes[i])) {
            rings.push_back(std::move(ring));
            ring.clear();
        }
    }
    return rings;
}

}  // namespace tool
