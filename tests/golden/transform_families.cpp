// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>

#include "golden/families.h"
#include "vellum/matrix.h"
#include "vellum/rectangles.h"

namespace golden {

using Vellum::AlignedDblRect;
using Vellum::DblPt;
using Vellum::DrwDPSetT;
using Vellum::DrwPSetT;
using Vellum::int_pt_t;
using Vellum::IntPt;
using Vellum::Mtx2D;
using Vellum::real_pt_t;
using Vellum::short_pt_t;

namespace {

constexpr int kRounds = 150;
constexpr int kMatrices = 4;

/// Moderate matrices often, so that much is in the range of the device.
Mtx2D DrawMatrix(Inputs& inputs, Kind kind) {
    return inputs.random.OneIn(2) ? inputs.PlainMatrix() : inputs.Matrix(kind);
}

template <class Function>
void ForAllKinds(Inputs& inputs, Function function) {
    for (const Kind kind : kAllKinds) {
        for (int i = 0; i < kRounds; ++i) {
            Mtx2D m = DrawMatrix(inputs, kind);
            function(kind, m);
        }
    }
}

/// Arrays of every count, each with matrices of several kinds.
template <class Function>
void ForAllArrays(Inputs& inputs, Function function) {
    for (const Kind kind : kAllKinds) {
        for (const size_t count : kCounts) {
            for (int i = 0; i < kMatrices; ++i) {
                Mtx2D m = DrawMatrix(inputs, kind);
                function(static_cast<int>(count), inputs.Points(kind, count), m);
            }
        }
    }
}

void SinglePoints(Inputs& inputs, Digest& digest) {
    ForAllKinds(inputs, [&](Kind kind, Mtx2D& m) {
        const DblPt in = inputs.Point(kind);
        const DblPt second = inputs.Point(kind);
        real_pt_t record;
        DblPt point;
        DblPt inPlace = in;
        DblPt image;
        DblPt loose;
        m.RealXfmPt(&in, &record);
        m.RealXfmPt(&second, &point);
        m.RealXfmPt(inPlace);
        m.RealXfmPt(second, image);
        m.XfmPt(in.x, in.y, &loose.x, &loose.y);
        digest.Add(record, point, inPlace, image, loose);

        IntPt device;
        int_pt_t deviceRecord;
        int x = 7;
        int y = 7;
        m.XfmPt(in.x, in.y, x, y);
        m.XfmPt(&in, &deviceRecord);
        m.XfmPt(&second, &device);
        DblPt back;
        m.InvXfmPt(&device, &back);
        digest.Add(x, y, deviceRecord, device, back);
    });
}

void ModelPoints(Inputs& inputs, Digest& digest) {
    ForAllArrays(inputs, [&](int n, const std::vector<DblPt>& in, Mtx2D& m) {
        std::vector<DblPt> out(in.size());
        std::vector<real_pt_t> records(in.size());
        m.RealXfmPts(n, in.data(), out.data());
        m.RealXfmPts(n, in.data(), records.data());
        digest.AddAll(out.data(), out.size());
        digest.AddAll(records.data(), records.size());
        m.RealXfmPts(n, records.data(), out.data());
        digest.AddAll(out.data(), out.size());
    });
}

void PointsInPlace(Inputs& inputs, Digest& digest) {
    ForAllArrays(inputs, [&](int n, std::vector<DblPt> points, Mtx2D& m) {
        DblPt min(7, 7);
        DblPt max(7, 7);
        m.RealXfmPtsExt(n, points.data(), min.x, min.y, max.x, max.y);
        digest.AddAll(points.data(), points.size());
        digest.Add(min, max);
    });
}

void DevicePoints(Inputs& inputs, Digest& digest) {
    ForAllArrays(inputs, [&](int n, const std::vector<DblPt>& in, Mtx2D& m) {
        std::vector<IntPt> out(in.size());
        std::vector<int_pt_t> records(in.size());
        m.XfmPts(n, in.data(), out.data());
        m.XfmPts(n, in.data(), records.data());
        digest.AddAll(out.data(), out.size());
        digest.AddAll(records.data(), records.size());
    });
}

void DeviceEighthsAndShorts(Inputs& inputs, Digest& digest) {
    ForAllArrays(inputs, [&](int n, const std::vector<DblPt>& in, Mtx2D& m) {
        std::vector<IntPt> eighths(in.size());
        std::vector<int_pt_t> records(in.size());
        std::vector<short_pt_t> shorts(in.size());
        m.XfmFPts(n, in.data(), eighths.data());
        m.XfmFPts(n, in.data(), records.data());
        m.XfmSPts(n, in.data(), shorts.data());
        digest.AddAll(eighths.data(), eighths.size());
        digest.AddAll(records.data(), records.size());
        digest.AddAll(shorts.data(), shorts.size());
    });
}

/// Halves, where rounding goes away from zero, and what is next to them and to the ends of the device's range.
void DeviceRounding(Inputs& inputs, Digest& digest) {
    constexpr double kOff[] = {0.5, -0.5, 0x1.fffffffffffffp-2, -0x1.fffffffffffffp-2, 0x1.0000000000001p-1, 0.0, -0.0};
    constexpr double kWhole[] = {0,        1,          -1,          2,           -2,     32767, -32768,
                                 99999999, 2147483647, -2147483648, -2147483649, 0x1p52, -7};
    std::vector<DblPt> in;
    for (const double whole : kWhole) {
        for (const double off : kOff) {
            const double other = inputs.random.OneOf(kWhole);
            in.emplace_back(whole + off, other + inputs.random.OneOf(kOff));
        }
    }
    const auto n = static_cast<int>(in.size());
    for (const auto orient : {Vellum::Mtx2DOrientNone, Vellum::Mtx2DOrientRot90, Vellum::Mtx2DOrientMirrorX}) {
        for (const bool isGeneral : {false, true}) {
            Mtx2D m(0, 0, orient, 1, 1, 0, 0);
            if (isGeneral) m.type = Vellum::Mtx2DGeneral;
            std::vector<IntPt> device(in.size());
            std::vector<IntPt> eighths(in.size());
            std::vector<short_pt_t> shorts(in.size());
            m.XfmPts(n, in.data(), device.data());
            m.XfmFPts(n, in.data(), eighths.data());
            m.XfmSPts(n, in.data(), shorts.data());
            digest.AddAll(device.data(), device.size());
            digest.AddAll(eighths.data(), eighths.size());
            digest.AddAll(shorts.data(), shorts.size());
        }
    }
}

/// More points than the caches hold, for which there are ways of their own.
void LargeArrays(Inputs& inputs, Digest& digest) {
    constexpr size_t kMany = (size_t{8} << 20) / sizeof(int_pt_t) + 37;
    const std::vector<DblPt> some = inputs.Points(Kind::Plane, 4099);
    std::vector<DblPt> in(kMany);
    for (size_t i = 0; i < kMany; ++i)
        in[i] = some[i % some.size()];
    std::vector<DblPt> out(kMany);
    std::vector<IntPt> device(kMany);
    const auto n = static_cast<int>(kMany);
    for (const bool isGeneral : {false, true}) {
        Mtx2D m(1.5, -2.5, Vellum::Mtx2DOrientMirrorX, 33.7, 21.3, 100.1, -7.7);
        if (isGeneral) m.ShearInX(0.37);
        m.SetType();
        m.RealXfmPts(n, in.data(), out.data());
        m.XfmPts(n, in.data(), device.data());
        digest.AddAll(out.data(), out.size());
        digest.AddAll(device.data(), device.size());
    }
}

void DevicePolygons(Inputs& inputs, Digest& digest) {
    ForAllArrays(inputs, [&](int n, const std::vector<DblPt>& in, Mtx2D& m) {
        std::vector<IntPt> out(in.size());
        std::vector<int_pt_t> records(in.size());
        int count = 7;
        int recordCount = 7;
        m.XfmPolyPts(n, &count, in.data(), out.data());
        m.XfmPolyPts(n, &recordCount, in.data(), records.data());
        digest.Add(count, recordCount);
        digest.AddAll(out.data(), static_cast<size_t>(count));
        digest.AddAll(records.data(), static_cast<size_t>(recordCount));
    });
}

void PolygonSets(Inputs& inputs, Digest& digest) {
    ForAllArrays(inputs, [&](int n, const std::vector<DblPt>& points, Mtx2D& m) {
        std::vector<real_pt_t> in(points.size());
        std::vector<uint32_t> codes(points.size());
        for (size_t i = 0; i < in.size(); ++i) {
            in[i] = {points[i].x, points[i].y};
            codes[i] = static_cast<uint32_t>(inputs.random.OneIn(5) ? inputs.random.Between(2, 3)
                                                                    : inputs.random.Between(0, 1));
        }
        const DrwPSetT set = {n, in.data(), codes.data()};

        std::vector<int_pt_t> device(in.size());
        std::vector<uint32_t> deviceCodes(in.size(), 99);
        DrwDPSetT deviceSet = {7, device.data(), deviceCodes.data()};
        m.XfmPolySetPts(&set, &deviceSet);
        digest.Add(deviceSet.numPts);
        digest.AddAll(device.data(), static_cast<size_t>(deviceSet.numPts));
        digest.AddAll(deviceCodes.data(), deviceCodes.size());

        std::vector<real_pt_t> model(in.size());
        std::vector<uint32_t> modelCodes(in.size(), 99);
        DrwPSetT modelSet = {7, model.data(), modelCodes.data()};
        m.RealXfmPolyPtSet(&set, &modelSet);
        digest.Add(modelSet.numPts);
        digest.AddAll(model.data(), static_cast<size_t>(modelSet.numPts));
        digest.AddAll(modelCodes.data(), modelCodes.size());
    });
}

void Rectangles(Inputs& inputs, Digest& digest) {
    ForAllKinds(inputs, [&](Kind kind, Mtx2D& m) {
        const std::vector<DblPt> p = inputs.Points(kind, 4);
        const Vellum::real_rect_t in = {{p[0].x, p[0].y}, {p[1].x, p[1].y}, {p[2].x, p[2].y}, {p[3].x, p[3].y}};
        Vellum::real_rect_t model;
        Vellum::int_rect_t device;
        m.XfmRect(&in, &model);
        m.XfmRect(&in, &device);
        Vellum::real_rect_t back;
        m.XfmRect(&device, &back);
        AlignedDblRect box = inputs.Box(kind);
        AlignedDblRect image;
        m.XfmRect(box, image);
        m.XfmRect(box);
        digest.Add(model, device, back, image, box);
    });
}

}  // namespace

Families TransformFamilies() {
    return {{"transforms.single_points", SinglePoints},
            {"transforms.model_points", ModelPoints},
            {"transforms.points_in_place", PointsInPlace},
            {"transforms.device_points", DevicePoints},
            {"transforms.device_eighths_and_shorts", DeviceEighthsAndShorts},
            {"transforms.device_rounding", DeviceRounding},
            {"transforms.large_arrays", LargeArrays},
            {"transforms.device_polygons", DevicePolygons},
            {"transforms.polygon_sets", PolygonSets},
            {"transforms.rectangles", Rectangles}};
}

}  // namespace golden
