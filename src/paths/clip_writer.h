// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CLIP_WRITER_H
#define VELLUM_SRC_PATHS_CLIP_WRITER_H

#include "paths/clip_polygon.h"

namespace Vellum::internal {

/// Appends polygons to the caller's set, whose arrays the caller has made large enough. A polygon that would carry the
/// count past what it can hold is left out.
///
/// Polygons that stand one after another in the input and go out as they stand are copied together.
class ClipWriter {
public:
    explicit ClipWriter(DrwPSetT& out) : out_(out) {}

    /// A whole polygon, codes and repeated points included.
    void WriteVerbatim(const ClipPolygon& polygon) {
        if (polygon.pts != run_.pts + run_.count || run_.count >= kRunPoints) Flush();
        if (polygon.count > Room() - run_.count) return;
        if (run_.count == 0) run_ = ClipPolygon{polygon.pts, polygon.codes, 0};
        run_.count += polygon.count;
    }

    /// Writes what waits to be copied. To be called at the end.
    void Flush();

    /// Begins a polygon that is put together from pieces.
    void Begin() {
        Flush();
        start_ = next_ = out_.numPts;
        overflown_ = false;
    }

    void Append(const real_pt_t& p, uint32_t code) {
        if (HasRoomFor(1)) Put(p, code);
    }

    /// Appends the vertices among points @p from to @p to, both included; none where from > to.
    void AppendVertices(const ClipPolygon& polygon, size_t from, size_t to);

    /// The same, from the last to the first.
    void AppendVerticesBackwards(const ClipPolygon& polygon, size_t from, size_t to);

    /// Ends it with the closing form of its last code.
    void Commit() {
        if (overflown_ || next_ == start_) return;
        out_.codes[next_ - 1] = out_.codes[next_ - 1] == 1 ? 3 : 2;
        out_.numPts = next_;
    }

private:
    /// Copied together while they are still in the cache from being looked at.
    static constexpr size_t kRunPoints = 8192;

    void Put(const real_pt_t& p, uint32_t code) {
        out_.pts[next_] = p;
        out_.codes[next_] = code;
        ++next_;
    }

    void PutVertex(const ClipPolygon& polygon, size_t i) {
        if (!polygon.IsRepeated(i)) Put(polygon.pts[i], OpenCode(polygon.codes[i]));
    }

    size_t Room() const { return static_cast<size_t>(INT32_MAX - out_.numPts); }

    bool HasRoomFor(size_t count) {
        overflown_ = overflown_ || count > static_cast<size_t>(INT32_MAX - next_);
        return !overflown_;
    }

    DrwPSetT& out_;
    ClipPolygon run_{nullptr, nullptr, 0};
    int32_t start_ = 0;
    int32_t next_ = 0;
    bool overflown_ = false;
};

}  // namespace Vellum::internal

#endif
