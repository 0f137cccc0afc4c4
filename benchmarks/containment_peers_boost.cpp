// SPDX-License-Identifier: MIT
#include "boost_shapes.h"
#include "containment_contenders.h"

namespace VellumBench {
namespace {

namespace geometry = boost::geometry;
namespace methods = geometry::strategy::within;

template <typename Method>
class BoostContainment : public ContainmentContender {
public:
    explicit BoostContainment(const ContainmentData& data)
        : ContainmentContender(data), polygon(ToBoostPolygon(data.outline)), queries(ToBoostLine(data.queries)) {}

    void Ask() override {
        for (size_t i = 0; i < queries.size(); ++i)
            answers[i] = geometry::within(queries[i], polygon, Method());
    }

private:
    BoostPolygon polygon;
    std::vector<BoostPoint> queries;
};

}  // namespace

std::unique_ptr<ContainmentContender> MakeBoostContainment(const ContainmentData& data) {
    return std::make_unique<BoostContainment<methods::cartesian_winding<BoostPoint>>>(data);
}

std::unique_ptr<ContainmentContender> MakeBoostFranklinContainment(const ContainmentData& data) {
    return std::make_unique<BoostContainment<methods::franklin<BoostPoint>>>(data);
}

std::unique_ptr<ContainmentContender> MakeBoostCrossingsContainment(const ContainmentData& data) {
    return std::make_unique<BoostContainment<methods::crossings_multiply<BoostPoint>>>(data);
}

}  // namespace VellumBench
