// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_CONTAINMENT_CONTENDERS_H
#define VELLUM_BENCHMARKS_CONTAINMENT_CONTENDERS_H

#include <memory>
#include <vector>

#include "vellum/points.h"

namespace VellumBench {

/// An outline, and points of which each is to be told whether it lies inside.
struct ContainmentData {
    std::vector<Vellum::DblPt> outline;
    std::vector<Vellum::DblPt> queries;
};

/// A way to tell. It has outline and points in its own form from the beginning.
class ContainmentContender {
public:
    virtual ~ContainmentContender() = default;
    /// Asks for every point, one after the other.
    virtual void Ask() = 0;
    const std::vector<char>& Answers() const { return answers; }

protected:
    explicit ContainmentContender(const ContainmentData& data) : answers(data.queries.size()) {}

    std::vector<char> answers;
};

std::unique_ptr<ContainmentContender> MakeVellumContainment(const ContainmentData& data);
std::unique_ptr<ContainmentContender> MakePlainContainment(const ContainmentData& data);

std::unique_ptr<ContainmentContender> MakeBoostContainment(const ContainmentData& data);
/// The other methods of Boost.Geometry, which count crossings.
std::unique_ptr<ContainmentContender> MakeBoostFranklinContainment(const ContainmentData& data);
std::unique_ptr<ContainmentContender> MakeBoostCrossingsContainment(const ContainmentData& data);

/// The predicate, which is the same for geometries of all kinds.
std::unique_ptr<ContainmentContender> MakeGeosContainment(const ContainmentData& data);
/// Whether the distance is 0, for which GEOS scans the outline.
std::unique_ptr<ContainmentContender> MakeGeosDistanceContainment(const ContainmentData& data);
/// Prepared for each question anew, so that the index is built for it.
std::unique_ptr<ContainmentContender> MakeGeosIndexedContainment(const ContainmentData& data);
/// Has the index beforehand.
std::unique_ptr<ContainmentContender> MakeGeosPreparedContainment(const ContainmentData& data);

}  // namespace VellumBench

#endif
