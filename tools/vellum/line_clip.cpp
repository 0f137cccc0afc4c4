// SPDX-License-Identifier: MIT
#include "line_clip.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tool {

namespace {

/// The part of a segment between two parameters, 0 being its start and 1 its end.
struct Span {
    double enter = 0.0;
    double leave = 1.0;
};

/// Positive to the left of the line from @p u to @p v, which is outside a clockwise rectangle, and linear along any
/// segment.
double Outside(const Vellum::DblPt& u, const Vellum::DblPt& v, const Vellum::DblPt& p) {
    return (v.x - u.x) * (p.y - u.y) - (v.y - u.y) * (p.x - u.x);
}

std::optional<Span> ClipSegment(const Vellum::DblPt& a, const Vellum::DblPt& b, const Vellum::DblRect& rect) {
    Span span;
    for (unsigned side = 0; side < 4; ++side) {
        const Vellum::DblPt& u = rect.GetPt(side);
        const Vellum::DblPt& v = rect.GetPt((side + 1) % 4);
        const double atA = Outside(u, v, a);
        const double atB = Outside(u, v, b);
        if (atA > 0.0 && atB > 0.0) return std::nullopt;
        if (atA > 0.0) span.enter = std::max(span.enter, atA / (atA - atB));
        if (atB > 0.0) span.leave = std::min(span.leave, atA / (atA - atB));
    }
    if (span.enter > span.leave) return std::nullopt;
    return span;
}

Vellum::DblPt Along(const Vellum::DblPt& a, const Vellum::DblPt& b, double share) {
    if (share == 0.0) return a;
    if (share == 1.0) return b;
    return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share};
}

}  // namespace

std::vector<Points> ClipLine(const Points& line, const Vellum::DblRect& rect) {
    std::vector<Points> pieces;
    bool open = false;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Vellum::DblPt& a = line[i - 1];
        const Vellum::DblPt& b = line[i];
        const std::optional<Span> span = ClipSegment(a, b, rect);
        if (span) {
            if (!open) pieces.push_back({Along(a, b, span->enter)});
            pieces.back().push_back(Along(a, b, span->leave));
        }
        open = span && span->leave == 1.0;
    }
    return pieces;
}

}  // namespace tool
