// SPDX-License-Identifier: MIT
#ifndef VELLUM_CONNECTOR_H
#define VELLUM_CONNECTOR_H

/// @file
/// `PolylineConnector`, which turns loosely drawn polylines into a connected network.

#include <cstdint>
#include <vector>

#include "vellum/containers.h"
#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/polylines.h"
#include "vellum/segment.h"
#include "vellum/shape.h"

namespace Vellum {

/// A polyline with its layer.
struct LayerPolyline {
    PolylineGeom* poly;  ///< owned by the connector
    uint32_t layer;
};

/// A closed shape that joins the polylines of its layer which touch it.
struct LayerConnector {
    ClosedShape* shape;  ///< owned by the connector
    uint32_t layer;
};

/// Joins the polylines of each layer: where two cross, both are split there; where an end of one comes within a
/// tolerance of another, a polyline of two points joins them; a closed shape joins what touches it to its centroid.
/// The output is the input rebuilt with all split points, then every joining polyline.
///
/// Whether two polylines are looked at at all is decided by their cached extents, so a host that sets points
/// directly calls `PolylineGeom::RecalcExtents` before it adds a polyline. A polyline of one point comes out as it
/// is, one without points comes out empty.
///
/// Add everything, call `ConnectPolylines` once, take the output; `Reset` makes the object ready for another run.
/// The output is made of copies. A further call without `Reset` begins anew with the input as it is then.
///
/// The cost is that of the segments near each other, not of all pairs. What is added may be added more than once,
/// and is destroyed once. Polylines and shapes are not to be changed while the connector holds them.
///
/// `polylines` and `connectors` are there to be read. They stay the vectors that the constructor made, no other is
/// put in their place, and what stands in them is changed by the members alone, but for one thing: a host may take
/// records off the end, and these are its own from then on, with the polyline or shape that they hold.
class VELLUM_API PolylineConnector {
public:
    std::vector<PolylineGeom*>* newPolySegs = nullptr;  ///< the joining polylines, in the order made
    DblPtVec** newPts = nullptr;                        ///< the split points of each segment, null until it has one
    std::vector<LayerPolyline*>* polylines;             ///< the input, in the order added
    std::vector<LayerConnector*>* connectors;           ///< the shapes, in the order added
    uint32_t segCount = 0;  ///< segments of the input, numbered polyline by polyline; as of a run
    uint8_t failed = 0;     ///< set where memory ran out; stays set until `Reset`

    PolylineConnector();
    PolylineConnector(const PolylineConnector&) = delete;
    ~PolylineConnector();
    /// Copies the fields as they stand: both objects then hold the same input, and what this one held is not
    /// destroyed. A host sets the pointers of one of the two to null before either is destroyed.
    PolylineConnector& operator=(const PolylineConnector& other);

    /// @name The run
    /// @{

    /// Takes @p poly over. False where memory runs out, with @p poly still the caller's, and where it is null.
    bool AddPolyline(PolylineGeom* poly, unsigned layer);
    /// Takes @p shape over, unless one with exactly its centroid is there in the same layer: that is true too, and
    /// @p shape stays the caller's then, unless it is itself held already. False where memory runs out for its
    /// record, and where it is null: nothing is taken over then. A centroid with NaN equals none.
    bool AddConnector(ClosedShape* shape, unsigned layer);
    /// Joins everything and hands out the result: @p out is an array made with new[], its polylines with new; all
    /// belong to the caller. Gaps of exactly @p tol are still joined. A single polyline comes out as it is, without
    /// connectors. False, with a @p count of 0 and @p out null, where there is no polyline or no memory for the work
    /// or the output. Where memory runs out for a split point or a joining polyline, the rest is handed out without
    /// it and `failed` is set.
    bool ConnectPolylines(double tol, unsigned& count, PolylineGeom**& out);
    /// Destroys everything that is held.
    void Reset();
    /// Prints the polylines, then the shapes.
    void PrintInput();
    /// @}

    /// @name Steps
    /// What `ConnectPolylines` is made of, for hosts that join pairs of their own choice: set `segCount`, call
    /// `InitNewPolySeg` and `InitNewPts`, then the steps, then `GenerateOutputPolylist`. Without those two
    /// containers nothing is recorded. Segments bear the numbers that they have in the whole input. The points given
    /// may be split points or points of joining polylines.
    /// @{

    /// Joins two polylines, segment pair by segment pair.
    void AddIntersections(PolylineGeom* a, unsigned firstSegA, PolylineGeom* b, unsigned firstSegB, double tol);
    void ConnectLineSegments(unsigned segA, const DblPt& a0, const DblPt& a1, unsigned segB, const DblPt& b0,
                             const DblPt& b1, double tol);
    /// Whether any end of a coincides with any end of b.
    bool AlreadyConnected(const DblPt& a0, const DblPt& a1, const DblPt& b0, const DblPt& b1);
    /// Splits or joins segments whose lines cross; false where they are parallel.
    bool TryIntersectingSegments(unsigned segA, const DblPt& a0, const DblPt& a1, unsigned segB, const DblPt& b0,
                                 const DblPt& b1, double tol);
    /// Joins parallel segments; false where their lines are too far apart.
    bool TryParallelSegments(unsigned segA, const DblPt& a0, const DblPt& a1, unsigned segB, const DblPt& b0,
                             const DblPt& b1, double tol);
    /// Joins the two nearest ends; false where none are within @p tol or the nearest distance is a tie.
    bool ConnectEndPoints(const DblPt& a0, const DblPt& a1, const DblPt& b0, const DblPt& b1, double tol);
    /// Joins the end that is nearest to the other segment's interior to it; false as above.
    bool ConnectEndToSegmentInterior(unsigned segA, const DblPt& a0, const DblPt& a1, unsigned segB, const DblPt& b0,
                                     const DblPt& b1, double tol);
    /// Whether @p v is to be joined to the parallel segment s0-s1, and by which @p link. A foot inside the segment
    /// becomes a split point of it; @p hit0 and @p hit1 are set where the link leads to an end.
    bool VtxToSegment(const DblPt& v, unsigned seg, const DblPt& s0, bool& hit0, const DblPt& s1, bool& hit1,
                      double tol, LineSegmentGeom& link);
    /// Records a split point.
    void AddNewPt(unsigned seg, const DblPt& p);
    /// Records a joining polyline.
    void AddNewPolySeg(const DblPt& p, const DblPt& q);
    /// Joins each segment to the first shape of its layer that touches it.
    void ApplyConnectorsToPolyline(LayerPolyline* lp, unsigned firstSeg);
    /// Joins one segment to the first shape of its layer that touches it; whether one did.
    bool ApplyConnectorsToSegment(const DblPt& p, const DblPt& q, unsigned layer, unsigned seg);
    /// Takes the split point of @p seg that is nearest to @p from; on a tie the first. False where none is left. A
    /// point at a NaN distance is taken when it is the first.
    /// @param last  the point written before; receives the point taken, unless they coincide.
    /// @param isNew receives whether they do not.
    bool GetNextClosestPt(const DblPt& from, unsigned seg, DblPt& last, bool& isNew);
    /// A new polyline of the points of input polyline @p index and its split points, which are used up; null where
    /// there is no memory, with the split points still there.
    PolylineGeom* GenerateOutputPoly(unsigned index, unsigned firstSeg);
    /// Hands out all input polylines as `GenerateOutputPoly` makes them, then the joining ones, which are the
    /// caller's from then on. False, with @p out null, where there are none or no memory; the split points and the
    /// joining polylines are still there then.
    bool GenerateOutputPolylist(unsigned& count, PolylineGeom**& out);
    /// An empty list of joining polylines. False where there is no memory.
    bool InitNewPolySeg();
    /// `segCount` segments without split points. False where there is no memory. Where there are some already, their
    /// number must still be `segCount`: `ClearNewPts` goes by it.
    bool InitNewPts();
    /// Destroys the joining polylines.
    void ClearNewPolySeg();
    /// Forgets all split points.
    void ClearNewPts();
    /// Destroys the input polylines.
    void ClearPolylines();
    /// Destroys the shapes.
    void ClearConnectors();
    /// @}
};

}  // namespace Vellum

#endif
