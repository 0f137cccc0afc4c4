// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_LINE_CLIP_H
#define VELLUM_TOOL_LINE_CLIP_H

#include <vector>

#include "drawing.h"
#include "vellum/vellum.h"

namespace tool {

/// The pieces of a line that lie in a rectangle whose corners run clockwise. Points inside keep their coordinates
/// exactly.
std::vector<Points> ClipLine(const Points& line, const Vellum::DblRect& rect);

}  // namespace tool

#endif
