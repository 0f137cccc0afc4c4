// SPDX-License-Identifier: MIT
#include "paths/clip_writer.h"

#include <cstring>

namespace Vellum::internal {

void ClipWriter::Flush() {
    if (run_.count == 0) return;
    std::memcpy(out_.pts + out_.numPts, run_.pts, run_.count * sizeof(real_pt_t));
    std::memcpy(out_.codes + out_.numPts, run_.codes, run_.count * sizeof(uint32_t));
    out_.numPts += static_cast<int32_t>(run_.count);
    run_.count = 0;
}

void ClipWriter::AppendVertices(const ClipPolygon& polygon, size_t from, size_t to) {
    if (from > to || !HasRoomFor(to - from + 1)) return;
    for (size_t i = from; i <= to; ++i)
        PutVertex(polygon, i);
}

void ClipWriter::AppendVerticesBackwards(const ClipPolygon& polygon, size_t from, size_t to) {
    if (from > to || !HasRoomFor(to - from + 1)) return;
    for (size_t i = to + 1; i-- > from;)
        PutVertex(polygon, i);
}

}  // namespace Vellum::internal
