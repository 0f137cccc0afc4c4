// SPDX-License-Identifier: MIT
#include "containment_contenders.h"
#include "plain_passes.h"
#include "vellum/polylines.h"

namespace VellumBench {
namespace {

class VellumContainment : public ContainmentContender {
public:
    explicit VellumContainment(const ContainmentData& data)
        : ContainmentContender(data),
          polygon(static_cast<unsigned>(data.outline.size()), data.outline.data()),
          queries(data.queries) {}

    void Ask() override {
        for (size_t i = 0; i < queries.size(); ++i)
            answers[i] = polygon.Contains(queries[i], 0);
    }

private:
    Vellum::PolygonGeom polygon;
    std::vector<Vellum::DblPt> queries;
};

class PlainContainment : public ContainmentContender {
public:
    explicit PlainContainment(const ContainmentData& data)
        : ContainmentContender(data), outline(data.outline), queries(data.queries) {}

    void Ask() override {
        for (size_t i = 0; i < queries.size(); ++i)
            answers[i] = PlainContains(outline.data(), outline.size(), queries[i]);
    }

private:
    std::vector<Vellum::DblPt> outline;
    std::vector<Vellum::DblPt> queries;
};

}  // namespace

std::unique_ptr<ContainmentContender> MakeVellumContainment(const ContainmentData& data) {
    return std::make_unique<VellumContainment>(data);
}

std::unique_ptr<ContainmentContender> MakePlainContainment(const ContainmentData& data) {
    return std::make_unique<PlainContainment>(data);
}

}  // namespace VellumBench
