// SPDX-License-Identifier: MIT
#include "golden/families.h"
#include "vellum/matrix.h"

namespace golden {

using Vellum::DblPt;
using Vellum::Mtx2D;
using Vellum::Mtx2DOrient;

namespace {

constexpr int kRounds = 150;
// The eight orientations, and one that is none.
constexpr int kOrients = 9;

template <class Function>
void ForAllKinds(Function function) {
    for (const Kind kind : kAllKinds)
        for (int i = 0; i < kRounds; ++i)
            function(kind);
}

void AddMatrix(Digest& digest, const Mtx2D& m) { digest.Add(m.m11, m.m12, m.m21, m.m22, m.dx, m.dy, m.mirror, m.type); }

void Construction(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        const DblPt origin = inputs.Point(kind);
        const DblPt scale = inputs.Point(kind);
        const DblPt to = inputs.Point(kind);
        for (int o = 0; o < kOrients; ++o) {
            const auto orient = static_cast<Mtx2DOrient>(o);
            AddMatrix(digest, Mtx2D(origin.x, origin.y, orient, scale.x, scale.y, to.x, to.y));
            Mtx2D m = inputs.Matrix(kind);
            m.Orient(orient);
            AddMatrix(digest, m);
        }
    });
}

/// All that changes a matrix, each after another at random. Of the turns only those that need no sine.
void Building(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        constexpr double kQuarterTurns[] = {0, 90, 180, 270, 360, 450, 540, 630};
        Mtx2D m = inputs.Matrix(kind);
        for (int step = 0; step < 8; ++step) {
            const DblPt by = inputs.Point(kind);
            switch (inputs.random.Below(7)) {
                case 0:
                    m.Translate(by.x, by.y);
                    break;
                case 1:
                    m.Scale(by.x, by.y);
                    break;
                case 2:
                    m.ReflectInX();
                    break;
                case 3:
                    m.ReflectInY();
                    break;
                case 4:
                    m.ShearInX(by.x);
                    break;
                case 5:
                    m.InvertYAxis(by.y);
                    break;
                default: {
                    const double degrees = inputs.random.OneOf(kQuarterTurns);
                    m.Rotate(degrees, inputs.random.Between(1, 2));
                }
            }
            AddMatrix(digest, m);
        }
        m.SetType();
        AddMatrix(digest, m);
    });
}

void Multiplication(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        Mtx2D a = inputs.Matrix(kind);
        const Mtx2D b = inputs.Matrix(kind);
        Mtx2D product;
        Mtx2D::Multiply(a, b, product);
        AddMatrix(digest, product);
        AddMatrix(digest, a * b);
        Mtx2D first = a;
        AddMatrix(digest, first.Postmult(b));
        AddMatrix(digest, a.Premult(b));
        AddMatrix(digest, a.Premult(a));
        digest.Add(a != b);
    });
}

void Inversion(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        Mtx2D m = inputs.Matrix(kind);
        AddMatrix(digest, m.Invert());
        Mtx2D plain = inputs.PlainMatrix();
        AddMatrix(digest, plain.Invert());
    });
}

void Queries(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        Mtx2D m = inputs.Matrix(kind);
        bool mirroredOut = false;
        bool mirroredIn = false;
        int orientOut = 7;
        int orientIn = 7;
        m.GetOrientationAndXMirror(&mirroredOut, &orientOut);
        m.GetXMirrorAndOrientation(&mirroredIn, &orientIn);
        digest.Add(mirroredOut, orientOut, mirroredIn, orientIn);
        digest.Add(m.GetDeterminant(), m.ReversesOrientation(), m.GetScale(), m.IsAligned(), m.IsIdentity());
        m.SetIdentity();
        AddMatrix(digest, m);
    });
}

}  // namespace

Families MatrixFamilies() {
    return {{"matrices.construction", Construction},
            {"matrices.building", Building},
            {"matrices.multiplication", Multiplication},
            {"matrices.inversion", Inversion},
            {"matrices.queries", Queries}};
}

}  // namespace golden
