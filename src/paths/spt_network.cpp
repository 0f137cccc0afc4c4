// SPDX-License-Identifier: MIT
#include "paths/spt_network.h"

#include <algorithm>
#include <bit>
#include <memory>
#include <new>

#include "shapes/point_chain.h"

namespace Vellum::internal {

namespace {

// The places of so many vertices are fetched from memory together.
constexpr size_t kVerticesAtOnce = 32;

bool HasNan(const DblPt& p) { return !p.IsExactly(p); }

// Equal coordinates, zeros of both signs among them, have equal bits after the addition.
uint64_t BitsOf(double coordinate) { return std::bit_cast<uint64_t>(coordinate + 0.0); }

// The upper and the middle bits depend on all bits of both coordinates.
uint64_t HashOf(const DblPt& p) {
    uint64_t hash = BitsOf(p.x) * 0x9e3779b97f4a7c15;
    hash = ((hash ^ hash >> 32) + BitsOf(p.y)) * 0xbf58476d1ce4e5b9;
    return (hash ^ hash >> 32) * 0x94d049bb133111eb;
}

}  // namespace

SPTNetwork::~SPTNetwork() {
    for (const Page& page : pages_)
        ::operator delete(page.nodes);
}

bool SPTNetwork::AddNodes(std::span<const PolylineGeom* const> lines) {
    if (!starts_.Resize(lines.size() + 1)) return false;
    size_t end = 1;
    for (size_t i = 0; i < lines.size(); ++i) {
        starts_[i] = end;
        end += (lines[i] == nullptr ? 0 : PointsOf(*lines[i]).size()) + 1;
    }
    starts_[lines.size()] = end;

    const size_t vertices = end - 1 - lines.size();
    if (vertices > kMost - size_ || !vertexNodes_.Resize(end) || !ReserveTable(size_ + vertices)) return false;
    vertexNodes_[0] = kNone;
    for (size_t i = 0; i < lines.size(); ++i) {
        uint32_t* const mapped = vertexNodes_.begin() + starts_[i];
        if (lines[i] != nullptr && !MapVertices(PointsOf(*lines[i]), i == 0, mapped)) return false;
        vertexNodes_[starts_[i + 1] - 1] = kNone;
    }

    if (!occurrences_.Resize(size_)) return false;
    std::fill(occurrences_.begin(), occurrences_.end(), Occurrence{kNone, kNone});
    return true;
}

bool SPTNetwork::MapVertices(std::span<const DblPt> points, bool areNew, uint32_t* mapped) {
    uint64_t hashes[kVerticesAtOnce];
    for (size_t first = 0; first < points.size(); first += kVerticesAtOnce) {
        const std::span<const DblPt> some = points.subspan(first, std::min(kVerticesAtOnce, points.size() - first));
        for (size_t i = 0; i < some.size(); ++i) {
            hashes[i] = HashOf(some[i]);
            __builtin_prefetch(&table_[HomeOf(hashes[i])]);
        }
        for (size_t i = 0; i < some.size(); ++i)
            if (!MapVertex(some[i], hashes[i], areNew, mapped[first + i])) return false;
    }
    return true;
}

bool SPTNetwork::MapVertex(const DblPt& p, uint64_t hash, bool isNew, uint32_t& mapped) {
    // Found by nobody, nodes with a NaN would only crowd the table.
    if (HasNan(p)) {
        mapped = kNone;
        return AppendNode(p);
    }
    uint32_t& place = table_[PlaceOf(p, hash)];
    const bool isFound = place != kNone;
    if (!isFound) place = size_ | TagOf(hash);
    mapped = place & ~tagMask_;
    return (isFound && !isNew) || AppendNode(p);
}

bool SPTNetwork::AppendNode(const DblPt& p) {
    if (size_ == pages_.Size() * kPageNodes) {
        void* const page = ::operator new(kPageNodes * sizeof(SPTNode), std::nothrow);
        if (page == nullptr) return false;
        if (!pages_.Append({static_cast<SPTNode*>(page)})) {
            ::operator delete(page);
            return false;
        }
    }
    std::construct_at(&(*this)[size_], p);
    ++size_;
    return true;
}

bool SPTNetwork::ReserveTable(size_t nodes) {
    const unsigned bits = std::max(4U, static_cast<unsigned>(std::bit_width(2 * nodes)));
    const size_t places = size_t{1} << bits;
    if (places <= table_.Size()) return true;
    if (!table_.Resize(places)) return false;
    std::fill(table_.begin(), table_.end(), kNone);
    tableShift_ = 64 - bits;
    // There is room for fewer nodes than half of the places: their numbers fit in the bits below, and none has all of
    // these set, as kNone has.
    tagMask_ = kNone << (bits - 1);
    for (uint32_t i = 0; i < size_; ++i) {
        const DblPt& p = (*this)[i].pt;
        if (HasNan(p)) continue;
        const uint64_t hash = HashOf(p);
        uint32_t& place = table_[PlaceOf(p, hash)];
        if (place == kNone) place = i | TagOf(hash);
    }
    return true;
}

// Where the first node at p stands, or else an empty place for it.
size_t SPTNetwork::PlaceOf(const DblPt& p, uint64_t hash) const {
    const size_t mask = table_.Size() - 1;
    const uint32_t tag = TagOf(hash);
    size_t place = HomeOf(hash);
    uint64_t probes = 1;
    while (table_[place] != kNone &&
           !((table_[place] & tagMask_) == tag && (*this)[table_[place] & ~tagMask_].pt.IsExactly(p))) {
        place = (place + 1) & mask;
        ++probes;
    }
    probes_ += probes;
    return place;
}

uint32_t SPTNetwork::Find(const DblPt& p) const {
    if (table_.IsEmpty() || HasNan(p)) return kNone;
    const uint32_t place = table_[PlaceOf(p, HashOf(p))];
    return place == kNone ? kNone : place & ~tagMask_;
}

bool SPTNetwork::Join() {
    std::fill(occurrences_.begin(), occurrences_.end(), Occurrence{0, 0});
    for (const uint32_t node : vertexNodes_)
        if (node != kNone) ++occurrences_[node].before;
    if (!MakeRoomForLists()) return false;

    for (size_t i = 1; i + 1 < vertexNodes_.Size(); ++i) {
        if (vertexNodes_[i] == kNone) continue;
        Occurrence& only = occurrences_[vertexNodes_[i]];
        Occurrence& place = IsList(only) ? lists_[size_t{only.after} + (only.before++ & kListLength)] : only;
        place = {vertexNodes_[i - 1], vertexNodes_[i + 1]};
    }
    return true;
}

// For nodes whose occurrences are counted. The lists are empty then.
bool SPTNetwork::MakeRoomForLists() {
    size_t room = 0;
    onlyOnce_ = 0;
    for (Occurrence& occurrence : occurrences_) {
        const uint32_t count = occurrence.before;
        if (count == 1) {
            ++onlyOnce_;
        } else {
            occurrence = {kList, static_cast<uint32_t>(room)};
            room += count;
        }
    }
    return lists_.Resize(room);
}

void SPTNetwork::Clear() {
    size_ = 0;
    table_.Clear();
    starts_.Clear();
    vertexNodes_.Clear();
    occurrences_.Clear();
}

void SPTNetwork::Reset() const {
    for (uint32_t i = 0; i < size_; ++i)
        (*this)[i].Reset();
}

}  // namespace Vellum::internal
