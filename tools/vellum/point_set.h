// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_POINT_SET_H
#define VELLUM_TOOL_POINT_SET_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "drawing.h"
#include "vellum/vellum.h"

namespace tool {

/// A poly point set that owns its arrays. It keeps them from one use to the next.
class PointSet {
public:
    /// Empties the set and makes room for @p capacity points.
    void Reset(std::size_t capacity);

    /// Appends a ring, for which there must be room.
    void Append(const Points& ring);

    /// The rings in the set, as the codes end them.
    std::vector<Points> Rings() const;

    Vellum::DrwPSetT& Record() { return record_; }

private:
    std::vector<Vellum::real_pt_t> points_;
    std::vector<uint32_t> codes_;
    Vellum::DrwPSetT record_{};
};

}  // namespace tool

#endif
