// SPDX-License-Identifier: MIT
#include "paths/clip_checks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <numbers>
#include <vector>

#include "vellum/clipping.h"

namespace paths_tests {
namespace {

using Vellum::DrwPSetT;
using Vellum::real_pt_t;

constexpr size_t kEarlier = 2;
constexpr size_t kBehind = 3;
constexpr real_pt_t kUntouchedPoint{-12345.5, 54321.5};
constexpr uint32_t kUntouchedCode = 0xA5A5A5A5;

template <class T>
bool SameBytes(const std::vector<T>& a, const std::vector<T>& b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

bool SameCorners(const DblRect& a, const DblRect& b) {
    for (unsigned i = 0; i < 4; ++i) {
        if (!SameBits(a.GetPt(i).x, b.GetPt(i).x) || !SameBits(a.GetPt(i).y, b.GetPt(i).y)) return false;
    }
    return true;
}

DrwPSetT RecordOf(PointSet& set) { return {static_cast<int32_t>(set.pts.size()), set.pts.data(), set.codes.data()}; }

/// An output that begins with something, with room for `room` points more.
class GuardedOutput {
public:
    explicit GuardedOutput(size_t room)
        : room_(room),
          pts_(kEarlier + room + kBehind, kUntouchedPoint),
          codes_(kEarlier + room + kBehind, kUntouchedCode),
          record_{kEarlier, pts_.data(), codes_.data()} {}

    DrwPSetT* Record() { return &record_; }

    PointSet Appended() const {
        const size_t count = static_cast<size_t>(record_.numPts);
        if (record_.numPts < static_cast<int32_t>(kEarlier) || count > kEarlier + room_) {
            ADD_FAILURE() << count << " points where there is room for " << kEarlier + room_;
            return {};
        }
        EXPECT_TRUE(IsUntouched(0, kEarlier)) << "what was there before is changed";
        EXPECT_TRUE(IsUntouched(count, pts_.size())) << "something is written behind the last point";
        const auto from = static_cast<std::ptrdiff_t>(kEarlier);
        const auto to = static_cast<std::ptrdiff_t>(count);
        return {{pts_.begin() + from, pts_.begin() + to}, {codes_.begin() + from, codes_.begin() + to}};
    }

private:
    bool IsUntouched(size_t from, size_t to) const {
        for (size_t i = from; i < to; ++i) {
            if (pts_[i].x != kUntouchedPoint.x || pts_[i].y != kUntouchedPoint.y || codes_[i] != kUntouchedCode) {
                return false;
            }
        }
        return true;
    }

    size_t room_;
    std::vector<real_pt_t> pts_;
    std::vector<uint32_t> codes_;
    DrwPSetT record_;
};

template <class Clip>
PointSet Run(Clip clip, const PointSet& in, const DblRect& rectangle) {
    PointSet given = in;
    DblRect givenRectangle = rectangle;
    DrwPSetT record = RecordOf(given);
    GuardedOutput out(Vellum::ClipPolygonSetMaxPts(&record));
    clip(&record, out.Record(), &givenRectangle);
    EXPECT_EQ(record.numPts, static_cast<int32_t>(in.pts.size()));
    EXPECT_EQ(record.pts, given.pts.data());
    EXPECT_EQ(record.codes, given.codes.data());
    EXPECT_TRUE(SameBytes(given.pts, in.pts) && SameBytes(given.codes, in.codes)) << "the input is changed";
    EXPECT_TRUE(SameCorners(givenRectangle, rectangle)) << "the rectangle is changed";
    return out.Appended();
}

}  // namespace

PointSet SetOf(std::initializer_list<CodedPoint> points) {
    PointSet set;
    for (const CodedPoint& p : points) {
        set.pts.push_back({p.x, p.y});
        set.codes.push_back(p.code);
    }
    return set;
}

PointSet PolygonOf(std::initializer_list<DblPt> points) {
    PointSet set;
    for (const DblPt& p : points) {
        set.pts.push_back({p.x, p.y});
        set.codes.push_back(0);
    }
    set.codes.back() = 2;
    return set;
}

void AppendTo(PointSet& set, const PointSet& more) {
    set.pts.insert(set.pts.end(), more.pts.begin(), more.pts.end());
    set.codes.insert(set.codes.end(), more.codes.begin(), more.codes.end());
}

DblRect Box(double left, double bottom, double right, double top) {
    return DblRect(DblPt(left, bottom), DblPt(right, top));
}

DblRect Corners(const DblPt& p0, const DblPt& p1, const DblPt& p2, const DblPt& p3) {
    DblRect r;
    r.p0 = p0;
    r.p1 = p1;
    r.p2 = p2;
    r.p3 = p3;
    return r;
}

DblRect TurnedBox(const DblPt& centre, double halfWidth, double halfHeight, double degrees) {
    const double radians = degrees * std::numbers::pi / 180.0;
    const bool isQuarter = std::fmod(degrees, 90.0) == 0.0;
    const double c = isQuarter ? std::round(std::cos(radians)) : std::cos(radians);
    const double s = isQuarter ? std::round(std::sin(radians)) : std::sin(radians);
    const auto corner = [&](double x, double y) {
        return DblPt(centre.x + (c * x - s * y), centre.y + (s * x + c * y));
    };
    return Corners(corner(-halfWidth, -halfHeight), corner(-halfWidth, halfHeight), corner(halfWidth, halfHeight),
                   corner(halfWidth, -halfHeight));
}

PointSet Clipped(const PointSet& in, const DblRect& clip) { return Run(Vellum::ClipPolygonSet, in, clip); }

PointSet ClippedCompletely(const PointSet& in, const DblRect& clip) {
    return Run(Vellum::ClipPolygonSetComplete, in, clip);
}

size_t MaxPtsOf(const PointSet& in) {
    PointSet given = in;
    const DrwPSetT record = RecordOf(given);
    return Vellum::ClipPolygonSetMaxPts(&record);
}

bool SameBits(double a, double b) {
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
    return a == b && std::signbit(a) == std::signbit(b);
}

testing::AssertionResult Holds(const PointSet& found, const PointSet& expected) {
    const auto describe = [](const PointSet& set, size_t at) {
        testing::Message text;
        text << "(" << testing::PrintToString(set.pts[at].x) << ", " << testing::PrintToString(set.pts[at].y) << "; "
             << set.codes[at] << ")";
        return text.GetString();
    };
    for (size_t i = 0; i < found.pts.size() && i < expected.pts.size(); ++i) {
        if (!SameBits(found.pts[i].x, expected.pts[i].x) || !SameBits(found.pts[i].y, expected.pts[i].y) ||
            found.codes[i] != expected.codes[i]) {
            return testing::AssertionFailure()
                   << "point " << i << " is " << describe(found, i) << " instead of " << describe(expected, i);
        }
    }
    if (found.pts.size() == expected.pts.size()) return testing::AssertionSuccess();
    return testing::AssertionFailure() << found.pts.size() << " points instead of " << expected.pts.size();
}

std::vector<PointSet> PolygonsOf(const PointSet& set) {
    std::vector<PointSet> polygons;
    bool isOpen = false;
    for (size_t i = 0; i < set.pts.size(); ++i) {
        if (!isOpen) polygons.emplace_back();
        polygons.back().pts.push_back(set.pts[i]);
        polygons.back().codes.push_back(set.codes[i]);
        isOpen = set.codes[i] != 2 && set.codes[i] != 3;
    }
    return polygons;
}

bool IsSelection(const PointSet& some, const PointSet& all) {
    const std::vector<PointSet> candidates = PolygonsOf(all);
    auto candidate = candidates.begin();
    for (const PointSet& polygon : PolygonsOf(some)) {
        candidate = std::find_if(candidate, candidates.end(), [&polygon](const PointSet& c) {
            return c.pts.size() == polygon.pts.size() && Holds(polygon, c);
        });
        if (candidate == candidates.end()) return false;
        ++candidate;
    }
    return true;
}

}  // namespace paths_tests
