// SPDX-License-Identifier: MIT
#include "vellum/connector.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <limits>
#include <memory>
#include <new>
#include <span>

#include "paths/connector_join.h"
#include "paths/connector_list.h"
#include "paths/connector_output.h"
#include "paths/connector_shapes.h"
#include "paths/connector_steps.h"
#include "shapes/point_chain.h"

namespace Vellum {

using internal::Coincide;
using internal::ConnectorList;
using internal::ConnectorSteps;
using internal::NumberedSegment;
using internal::PointsOf;

namespace {

constexpr unsigned kFirstSplits = 4;

// Segments, polylines and shapes are numbered in 32 bits, with a number to spare.
constexpr size_t kMost = std::numeric_limits<uint32_t>::max();

/// Brings what the steps find to a connector.
class Recorder final : public internal::ConnectorSink {
public:
    explicit Recorder(PolylineConnector& connector) : connector_(connector) {}
    void AddPoint(uint32_t segment, const DblPt& p) override { connector_.AddNewPt(segment, p); }
    void AddLink(const DblPt& p, const DblPt& q) override { connector_.AddNewPolySeg(p, q); }

private:
    PolylineConnector& connector_;
};

size_t SegmentsOf(const PolylineGeom& polyline) {
    const size_t points = PointsOf(polyline).size();
    return points == 0 ? 0 : points - 1;
}

// Larger by one ten-thousandth, so that gaps of exactly tol are joined.
double WorkingTolerance(double tol) { return tol - tol * 0.9999 + tol; }

template <class Item>
size_t SizeOf(const std::vector<Item*>* items) {
    return items == nullptr ? 0 : items->size();
}

template <class Item>
bool PushBack(std::vector<Item*>& items, Item* item) {
    try {
        items.push_back(item);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

/// Makes the record of an object that is added. False where there is no memory.
template <class Record, class Object>
bool AddRecord(std::vector<Record*>* records, Object* object, uint32_t layer) {
    if (records == nullptr) return false;
    auto* const record = new (std::nothrow) Record{object, layer};
    if (record == nullptr) return false;
    if (PushBack(*records, record)) return true;
    delete record;
    return false;
}

/// Destroys the objects of some records, each once however often it was added, and the records.
template <class Record, class Object>
void Destroy(std::vector<Record*>& records, Object* Record::*object) {
    std::sort(records.begin(), records.end(), [object](const Record* a, const Record* b) {
        return std::less<const Object*>()(a->*object, b->*object);
    });
    const Object* destroyed = nullptr;
    for (const Record* record : records) {
        if (record->*object != destroyed) {
            destroyed = record->*object;
            delete destroyed;
        }
        delete record;
    }
}

/// A segment that a host gives. Its ends are copied, since they may be split points, which move where one is added.
struct GivenSegment {
    uint32_t number;
    DblPt p0;
    DblPt p1;

    NumberedSegment Numbered() const { return {number, p0, p1}; }
};

/// An empty list of split points. Null where there is no memory.
DblPtVec* NewSplits() {
    std::unique_ptr<DblPtVec> splits(new (std::nothrow) DblPtVec(kFirstSplits));
    return splits == nullptr || splits->buffer == nullptr ? nullptr : splits.release();
}

/// Empties the lists of some segments, where there are any.
void UseUp(DblPtVec* const* splits, size_t segments) {
    for (size_t i = 0; splits != nullptr && i < segments; ++i)
        if (splits[i] != nullptr) splits[i]->clear();
}

void FreeSplits(PolylineConnector& connector) {
    connector.ClearNewPts();
    delete[] connector.newPts;
    connector.newPts = nullptr;
}

bool CountSegments(PolylineConnector& connector) {
    size_t count = 0;
    for (const LayerPolyline* polyline : *connector.polylines)
        count += SegmentsOf(*polyline->poly);
    if (count > kMost || SizeOf(connector.polylines) > kMost || SizeOf(connector.connectors) > kMost) return false;
    connector.segCount = static_cast<uint32_t>(count);
    return true;
}

/// Whether a shape's layer and centroid are there already.
bool IsHeld(std::vector<LayerConnector*>* connectors, const ClosedShape& shape, uint32_t layer) {
    if (connectors == nullptr) return false;
    DblPt centroid;
    shape.GetCentroid(centroid);
    return static_cast<ConnectorList*>(connectors)->Holds(layer, centroid);
}

bool JoinShapes(PolylineConnector& connector, Recorder& recorder) {
    if (SizeOf(connector.connectors) == 0) return true;
    internal::ShapeIndex index;
    if (!index.Build(*connector.connectors)) return false;
    uint32_t firstSeg = 0;
    for (const LayerPolyline* polyline : *connector.polylines) {
        index.Join(PointsOf(*polyline->poly), firstSeg, polyline->layer, recorder);
        firstSeg += static_cast<uint32_t>(SegmentsOf(*polyline->poly));
    }
    return true;
}

bool JoinAll(PolylineConnector& connector, double tol) {
    Recorder recorder(connector);
    internal::PolylineJoin join(*connector.polylines, tol);
    return join.Find() && join.PassTo(recorder) && JoinShapes(connector, recorder);
}

}  // namespace

PolylineConnector::PolylineConnector()
    : polylines(new (std::nothrow) std::vector<LayerPolyline*>), connectors(new (std::nothrow) ConnectorList) {}

PolylineConnector::~PolylineConnector() {
    Reset();
    delete polylines;
    delete static_cast<ConnectorList*>(connectors);
}

PolylineConnector& PolylineConnector::operator=(const PolylineConnector& other) = default;

bool PolylineConnector::AddPolyline(PolylineGeom* poly, unsigned layer) {
    if (poly == nullptr) return false;
    if (AddRecord(polylines, poly, layer)) return true;
    failed = 1;
    return false;
}

bool PolylineConnector::AddConnector(ClosedShape* shape, unsigned layer) {
    if (shape == nullptr) return false;
    if (IsHeld(connectors, *shape, layer) || AddRecord(connectors, shape, layer)) return true;
    failed = 1;
    return false;
}

bool PolylineConnector::ConnectPolylines(double tol, unsigned& count, PolylineGeom**& out) {
    count = 0;
    out = nullptr;
    if (SizeOf(polylines) == 0) return false;
    FreeSplits(*this);
    if (!CountSegments(*this) || !InitNewPolySeg() || !InitNewPts()) return false;
    if (polylines->size() > 1 && !JoinAll(*this, WorkingTolerance(tol))) return false;
    return GenerateOutputPolylist(count, out);
}

void PolylineConnector::AddIntersections(PolylineGeom* a, unsigned firstSegA, PolylineGeom* b, unsigned firstSegB,
                                         double tol) {
    if (a->extents.IsDisjointFrom(b->extents, tol)) return;
    Recorder recorder(*this);
    const ConnectorSteps steps(tol, recorder);
    const std::span<const DblPt> ptsA = PointsOf(*a);
    const std::span<const DblPt> ptsB = PointsOf(*b);
    for (size_t i = 0; i + 1 < ptsA.size(); ++i) {
        const NumberedSegment segA{firstSegA + static_cast<uint32_t>(i), ptsA[i], ptsA[i + 1]};
        for (size_t k = 0; k + 1 < ptsB.size(); ++k)
            steps.Connect(segA, {firstSegB + static_cast<uint32_t>(k), ptsB[k], ptsB[k + 1]});
    }
}

void PolylineConnector::ConnectLineSegments(unsigned segA, const DblPt& a0, const DblPt& a1, unsigned segB,
                                            const DblPt& b0, const DblPt& b1, double tol) {
    Recorder recorder(*this);
    const GivenSegment a{segA, a0, a1};
    const GivenSegment b{segB, b0, b1};
    ConnectorSteps(tol, recorder).Connect(a.Numbered(), b.Numbered());
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): hosts call it on an object
bool PolylineConnector::AlreadyConnected(const DblPt& a0, const DblPt& a1, const DblPt& b0, const DblPt& b1) {
    return ConnectorSteps::AlreadyConnected({0, a0, a1}, {0, b0, b1});
}

bool PolylineConnector::TryIntersectingSegments(unsigned segA, const DblPt& a0, const DblPt& a1, unsigned segB,
                                                const DblPt& b0, const DblPt& b1, double tol) {
    Recorder recorder(*this);
    const GivenSegment a{segA, a0, a1};
    const GivenSegment b{segB, b0, b1};
    return ConnectorSteps(tol, recorder).TryIntersecting(a.Numbered(), b.Numbered());
}

bool PolylineConnector::TryParallelSegments(unsigned segA, const DblPt& a0, const DblPt& a1, unsigned segB,
                                            const DblPt& b0, const DblPt& b1, double tol) {
    Recorder recorder(*this);
    const GivenSegment a{segA, a0, a1};
    const GivenSegment b{segB, b0, b1};
    return ConnectorSteps(tol, recorder).TryParallel(a.Numbered(), b.Numbered());
}

bool PolylineConnector::ConnectEndPoints(const DblPt& a0, const DblPt& a1, const DblPt& b0, const DblPt& b1,
                                         double tol) {
    Recorder recorder(*this);
    return ConnectorSteps(tol, recorder).ConnectEnds({0, a0, a1}, {0, b0, b1});
}

bool PolylineConnector::ConnectEndToSegmentInterior(unsigned segA, const DblPt& a0, const DblPt& a1, unsigned segB,
                                                    const DblPt& b0, const DblPt& b1, double tol) {
    Recorder recorder(*this);
    const GivenSegment a{segA, a0, a1};
    const GivenSegment b{segB, b0, b1};
    return ConnectorSteps(tol, recorder).ConnectEndToInterior(a.Numbered(), b.Numbered());
}

bool PolylineConnector::VtxToSegment(const DblPt& v, unsigned seg, const DblPt& s0, bool& hit0, const DblPt& s1,
                                     bool& hit1, double tol, LineSegmentGeom& link) {
    Recorder recorder(*this);
    const GivenSegment s{seg, s0, s1};
    return ConnectorSteps(tol, recorder).ConnectVertex(DblPt(v), s.Numbered(), hit0, hit1, link);
}

void PolylineConnector::AddNewPt(unsigned seg, const DblPt& p) {
    if (newPts == nullptr) return;
    DblPtVec*& splits = newPts[seg];
    if (splits == nullptr) splits = NewSplits();
    if (splits == nullptr || !splits->push_back(p)) failed = 1;
}

void PolylineConnector::AddNewPolySeg(const DblPt& p, const DblPt& q) {
    if (newPolySegs == nullptr) return;
    const DblPt ends[] = {p, q};
    auto* const link = new (std::nothrow) PolylineGeom(2, ends);
    if (link != nullptr && link->nPts == 2 && PushBack(*newPolySegs, link)) return;
    delete link;
    failed = 1;
}

void PolylineConnector::ApplyConnectorsToPolyline(LayerPolyline* lp, unsigned firstSeg) {
    const std::span<const DblPt> points = PointsOf(*lp->poly);
    for (size_t i = 0; i + 1 < points.size(); ++i)
        ApplyConnectorsToSegment(points[i], points[i + 1], lp->layer, firstSeg + static_cast<uint32_t>(i));
}

bool PolylineConnector::ApplyConnectorsToSegment(const DblPt& p, const DblPt& q, unsigned layer, unsigned seg) {
    if (connectors == nullptr) return false;
    Recorder recorder(*this);
    return std::any_of(connectors->begin(), connectors->end(), [&](const LayerConnector* connector) {
        return connector->layer == layer && internal::JoinToShape({seg, p, q}, *connector->shape, recorder);
    });
}

bool PolylineConnector::GetNextClosestPt(const DblPt& from, unsigned seg, DblPt& last, bool& isNew) {
    DblPtVec* const splits = newPts == nullptr ? nullptr : newPts[seg];
    if (splits == nullptr || splits->empty()) return false;
    DblPt* const closest = internal::FindClosest(from, *splits);
    // `last` may be in the list.
    const DblPt taken = *closest;
    isNew = !Coincide(taken, last);
    splits->erase(closest);
    if (isNew) last = taken;
    return true;
}

PolylineGeom* PolylineConnector::GenerateOutputPoly(unsigned index, unsigned firstSeg) {
    const PolylineGeom& input = *(*polylines)[index]->poly;
    DblPtVec* const* const splits = newPts == nullptr ? nullptr : newPts + firstSeg;
    internal::ConnectorOutput output;
    PolylineGeom* const made = output.Rebuild(input, splits);
    if (made != nullptr) UseUp(splits, SegmentsOf(input));
    return made;
}

bool PolylineConnector::GenerateOutputPolylist(unsigned& count, PolylineGeom**& out) {
    count = 0;
    out = nullptr;
    const size_t inputs = SizeOf(polylines);
    const size_t total = inputs + SizeOf(newPolySegs);
    if (total == 0 || total > kMost) return false;
    std::unique_ptr<PolylineGeom*[]> all(new (std::nothrow) PolylineGeom*[total]);
    if (all == nullptr) return false;
    internal::ConnectorOutput output;
    size_t segments = 0;
    for (size_t i = 0; i < inputs; ++i) {
        const PolylineGeom& input = *(*polylines)[i]->poly;
        all[i] = output.Rebuild(input, newPts == nullptr ? nullptr : newPts + segments);
        if (all[i] == nullptr) {
            std::for_each_n(all.get(), i, [](const PolylineGeom* made) { delete made; });
            return false;
        }
        segments += SegmentsOf(input);
    }
    UseUp(newPts, segments);
    if (newPolySegs != nullptr) {
        std::copy(newPolySegs->begin(), newPolySegs->end(), all.get() + inputs);
        newPolySegs->clear();
    }
    count = static_cast<unsigned>(total);
    out = all.release();
    return true;
}

bool PolylineConnector::InitNewPolySeg() {
    ClearNewPolySeg();
    if (newPolySegs == nullptr) newPolySegs = new (std::nothrow) std::vector<PolylineGeom*>;
    return newPolySegs != nullptr;
}

bool PolylineConnector::InitNewPts() {
    FreeSplits(*this);
    newPts = new (std::nothrow) DblPtVec*[segCount]();
    return newPts != nullptr;
}

void PolylineConnector::ClearNewPolySeg() {
    if (newPolySegs == nullptr) return;
    for (const PolylineGeom* link : *newPolySegs)
        delete link;
    newPolySegs->clear();
}

void PolylineConnector::ClearNewPts() {
    if (newPts == nullptr) return;
    for (size_t i = 0; i < segCount; ++i) {
        delete newPts[i];
        newPts[i] = nullptr;
    }
}

void PolylineConnector::ClearPolylines() {
    if (polylines == nullptr) return;
    Destroy(*polylines, &LayerPolyline::poly);
    polylines->clear();
}

void PolylineConnector::ClearConnectors() {
    if (connectors == nullptr) return;
    Destroy(*connectors, &LayerConnector::shape);
    connectors->clear();
}

void PolylineConnector::Reset() {
    ClearPolylines();
    ClearConnectors();
    ClearNewPolySeg();
    delete newPolySegs;
    newPolySegs = nullptr;
    FreeSplits(*this);
    segCount = 0;
    failed = 0;
}

void PolylineConnector::PrintInput() {
    if (polylines != nullptr)
        for (const LayerPolyline* polyline : *polylines)
            polyline->poly->Print();
    if (connectors != nullptr)
        for (const LayerConnector* connector : *connectors)
            connector->shape->Print();
}

}  // namespace Vellum
