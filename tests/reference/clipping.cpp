// SPDX-License-Identifier: MIT
#include "reference/clipping.h"

#include <cmath>
#include <cstddef>
#include <deque>
#include <functional>
#include <set>

namespace reference {
namespace {

using Vellum::DblRect;
using Vellum::real_pt_t;

constexpr double kSingleEpsilon = 1.1920928955078125e-7;
constexpr double kSingleSmallest = 1.1754943508222875e-38;

struct ClipVertex;

struct Pending {
    ClipVertex* vertex;
    double alpha;
};

struct ClipVertex {
    double x = 0.0;
    double y = 0.0;
    uint32_t code = 0;
    ClipVertex* next = nullptr;
    ClipVertex* prev = nullptr;
    ClipVertex* neighbor = nullptr;
    int exitFlag = 0;
    int intersectMark = 0;
    std::vector<Pending> pending;
};

struct ClipRing {
    unsigned count = 0;
    ClipVertex* first = nullptr;
    ClipVertex* cursor = nullptr;
};

bool IsEndCode(uint32_t code) { return code == 2 || code == 3; }

uint32_t OpenForm(uint32_t code) { return code == 2 ? 0 : code == 3 ? 1 : code; }

class PolygonClipper {
public:
    PolygonClipper(const PointSet& in, PointSet& out, const DblRect& clip) : in_(in), out_(out), clip_(clip) {}

    void Clip(size_t first, size_t last) {
        if (first == last) return;
        BuildSubject(first, last);
        for (unsigned i = 0; i < 4; ++i)
            Append(rectangle_, clip_.GetPt(i).x, clip_.GetPt(i).y, 0);
        if (subject_.count < 2 || rectangle_.count != 4) return;
        FindIntersections();
        if (intersections_ > 0) {
            Splice(subject_);
            Splice(rectangle_);
            MarkEntries(subject_, rectangle_);
            MarkEntries(rectangle_, subject_);
            TraceAll();
        } else {
            DecideContainment(first, last);
        }
    }

private:
    ClipVertex* NewVertex(double x, double y, uint32_t code) {
        ClipVertex& v = vertices_.emplace_back();
        v.x = x;
        v.y = y;
        v.code = code;
        return &v;
    }

    void Append(ClipRing& ring, double x, double y, uint32_t code) {
        ClipVertex* v = NewVertex(x, y, code);
        if (ring.first == nullptr) {
            ring.first = v;
            v->next = v->prev = v;
        } else {
            v->prev = ring.cursor;
            v->next = ring.cursor->next;
            v->next->prev = v;
            ring.cursor->next = v;
        }
        ring.cursor = v;
        ++ring.count;
    }

    void BuildSubject(size_t first, size_t last) {
        for (size_t i = first; i <= last; ++i) {
            const real_pt_t& p = in_.pts[i];
            if (i > first && p.x == subject_.cursor->x && p.y == subject_.cursor->y) continue;
            Append(subject_, p.x, p.y, OpenForm(in_.codes[i]));
        }
    }

    static unsigned SeparationBit(const ClipVertex& s, const ClipVertex& k) {
        const ClipVertex& s2 = *s.next;
        const ClipVertex& k2 = *k.next;
        if (k.x > s.x && k.x > s2.x && k2.x > s.x && k2.x > s2.x) return 1;
        if (k.x < s.x && k.x < s2.x && k2.x < s.x && k2.x < s2.x) return 2;
        if (k.y > s.y && k.y > s2.y && k2.y > s.y && k2.y > s2.y) return 4;
        if (k.y < s.y && k.y < s2.y && k2.y < s.y && k2.y < s2.y) return 8;
        return 0;
    }

    void FindIntersections() {
        ClipVertex* s = subject_.first;
        do {
            ClipVertex* k = rectangle_.first;
            do {
                if (const unsigned bit = SeparationBit(*s, *k))
                    separation_ |= bit;
                else
                    Intersect(s, k);
                k = k->next;
            } while (k != rectangle_.first);
            s = s->next;
        } while (s != subject_.first);
    }

    void Intersect(ClipVertex* s, ClipVertex* k) {
        const double d1x = s->next->x - s->x;
        const double d1y = s->next->y - s->y;
        const double d2x = k->next->x - k->x;
        const double d2y = k->next->y - k->y;
        if (std::fabs(d1x - d2x) < kSingleEpsilon && std::fabs(d1y - d2y) < kSingleEpsilon) return;
        const double denom = d1x * d2y - d1y * d2x;
        if (-kSingleSmallest <= denom && denom <= kSingleSmallest) return;
        double alphaS = ((s->y - k->y) * d2x - (s->x - k->x) * d2y) / denom;
        if (!(alphaS >= 0.0 && alphaS <= 1.0)) return;
        double alphaK = ((s->y - k->y) * d1x - (s->x - k->x) * d1y) / denom;
        if (!(alphaK >= 0.0 && alphaK <= 1.0)) return;
        if (alphaS == 0.0) alphaS = kSingleEpsilon;
        if (alphaK == 0.0) alphaK = kSingleEpsilon;
        const double x = s->x + alphaS * d1x;
        const double y = s->y + alphaS * d1y;
        ClipVertex* onSubject = NewVertex(x, y, s->code);
        ClipVertex* onRectangle = NewVertex(x, y, k->code);
        onSubject->intersectMark = onRectangle->intersectMark = 1;
        onSubject->neighbor = onRectangle;
        onRectangle->neighbor = onSubject;
        Enqueue(s->pending, {onSubject, alphaS});
        Enqueue(k->pending, {onRectangle, alphaK});
        ++intersections_;
    }

    static void Enqueue(std::vector<Pending>& pending, const Pending& entry) {
        auto at = pending.begin();
        while (at != pending.end() && !(at->alpha > entry.alpha))
            ++at;
        pending.insert(at, entry);
    }

    static void Splice(ClipRing& ring) {
        ClipVertex* v = ring.first;
        do {
            ClipVertex* const following = v->next;
            ClipVertex* before = v;
            for (const Pending& entry : v->pending) {
                entry.vertex->prev = before;
                entry.vertex->next = following;
                before->next = entry.vertex;
                following->prev = entry.vertex;
                before = entry.vertex;
                ++ring.count;
            }
            v = following;
        } while (v != ring.first);
    }

    static bool Contains(const ClipRing& ring, const ClipVertex& p) {
        int winding = 0;
        const ClipVertex* a = ring.first;
        do {
            const ClipVertex* b = a->next;
            const double isLeft = (p.y - a->y) * (b->x - a->x) - (b->y - a->y) * (p.x - a->x);
            if (p.y >= a->y) {
                if (b->y > p.y && isLeft > 0.0) ++winding;
            } else if (p.y >= b->y && isLeft < 0.0) {
                --winding;
            }
            a = b;
        } while (a != ring.first);
        return winding != 0;
    }

    static void MarkEntries(ClipRing& ring, const ClipRing& other) {
        bool inside = Contains(other, *ring.first);
        ClipVertex* v = ring.first;
        do {
            if (v->intersectMark != 0) {
                v->exitFlag = inside ? 1 : 0;
                inside = !inside;
            }
            v = v->next;
        } while (v != ring.first);
    }

    void TraceAll() {
        std::vector<std::vector<ClipVertex>> polygons;
        for (ClipVertex* v = subject_.first->next; v != subject_.first; v = v->next) {
            if (v->intersectMark == 1) Trace(v, polygons);
        }
        for (const std::vector<ClipVertex>& polygon : polygons)
            Write(polygon);
    }

    static void Trace(ClipVertex* start, std::vector<std::vector<ClipVertex>>& polygons) {
        std::vector<ClipVertex> polygon;
        std::set<const ClipVertex*> arrivals;
        ClipVertex* current = start;
        do {
            current->intersectMark = -1;
            current = current->neighbor;
            current->intersectMark = -1;
            const bool backwards = current->exitFlag == 1;
            do {
                polygon.push_back(*current);
                current = backwards ? current->prev : current->next;
            } while (current->intersectMark == 0);
            if (current != start && !arrivals.insert(current).second) return;
        } while (current != start);
        polygons.push_back(polygon);
    }

    void Write(const std::vector<ClipVertex>& polygon) {
        for (const ClipVertex& v : polygon) {
            out_.pts.push_back({v.x, v.y});
            out_.codes.push_back(v.code);
        }
        out_.codes.back() = out_.codes.back() == 1 ? 3 : 2;
    }

    void DecideContainment(size_t first, size_t last) {
        if ((separation_ & 3) != 3 && (separation_ & 12) != 12) return;
        if (Contains(rectangle_, *subject_.first)) {
            for (size_t i = first; i <= last; ++i) {
                out_.pts.push_back(in_.pts[i]);
                out_.codes.push_back(in_.codes[i]);
            }
        } else if (Contains(subject_, *rectangle_.first)) {
            for (unsigned i = 0; i < 4; ++i) {
                out_.pts.push_back({clip_.GetPt(i).x, clip_.GetPt(i).y});
                out_.codes.push_back(i == 3 ? 2 : 0);
            }
        }
    }

    const PointSet& in_;
    PointSet& out_;
    const DblRect& clip_;
    std::deque<ClipVertex> vertices_;
    ClipRing subject_;
    ClipRing rectangle_;
    unsigned separation_ = 0;
    size_t intersections_ = 0;
};

void ForEachPolygon(const PointSet& set, const std::function<void(size_t, size_t)>& visit) {
    const size_t count = set.pts.size();
    size_t first = 0;
    for (;;) {
        while (first < count && IsEndCode(set.codes[first]))
            ++first;
        size_t last = first;
        while (last < count && !IsEndCode(set.codes[last]))
            ++last;
        if (last >= count) return;
        visit(first, last);
        first = last + 1;
    }
}

double SignedArea(const std::vector<real_pt_t>& ring) {
    double twice = 0.0;
    for (size_t i = 0; i < ring.size(); ++i) {
        const real_pt_t& o = ring[0];
        const real_pt_t& a = ring[i];
        const real_pt_t& b = ring[(i + 1) % ring.size()];
        twice += (a.x - o.x) * (b.y - o.y) - (b.x - o.x) * (a.y - o.y);
    }
    return twice / 2.0;
}

std::vector<real_pt_t> KeepHalfPlane(const std::vector<real_pt_t>& ring, const real_pt_t& a, const real_pt_t& b,
                                     double orientation) {
    std::vector<real_pt_t> kept;
    const auto side = [&](const real_pt_t& p) {
        return orientation * ((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x));
    };
    for (size_t i = 0; i < ring.size(); ++i) {
        const real_pt_t& p = ring[i];
        const real_pt_t& q = ring[(i + 1) % ring.size()];
        const double sp = side(p);
        const double sq = side(q);
        if (sp >= 0.0) kept.push_back(p);
        if ((sp > 0.0 && sq < 0.0) || (sp < 0.0 && sq > 0.0)) {
            const double t = sp / (sp - sq);
            kept.push_back({p.x + t * (q.x - p.x), p.y + t * (q.y - p.y)});
        }
    }
    return kept;
}

}  // namespace

void ClipPolygonSet(const PointSet& in, PointSet& out, const DblRect& clip) {
    ForEachPolygon(in, [&](size_t first, size_t last) { PolygonClipper(in, out, clip).Clip(first, last); });
}

double AreaWithin(const PointSet& in, const DblRect& clip) {
    std::vector<real_pt_t> corners;
    for (unsigned i = 0; i < 4; ++i)
        corners.push_back({clip.GetPt(i).x, clip.GetPt(i).y});
    const double orientation = SignedArea(corners) < 0.0 ? -1.0 : 1.0;
    double sum = 0.0;
    ForEachPolygon(in, [&](size_t first, size_t last) {
        std::vector<real_pt_t> ring(in.pts.begin() + static_cast<std::ptrdiff_t>(first),
                                    in.pts.begin() + static_cast<std::ptrdiff_t>(last) + 1);
        for (unsigned i = 0; i < 4 && !ring.empty(); ++i)
            ring = KeepHalfPlane(ring, corners[i], corners[(i + 1) % 4], orientation);
        if (!ring.empty()) sum += std::fabs(SignedArea(ring));
    });
    return sum;
}

double Area(const PointSet& set) {
    double sum = 0.0;
    ForEachPolygon(set, [&](size_t first, size_t last) {
        sum += std::fabs(SignedArea({set.pts.begin() + static_cast<std::ptrdiff_t>(first),
                                     set.pts.begin() + static_cast<std::ptrdiff_t>(last) + 1}));
    });
    return sum;
}

}  // namespace reference
