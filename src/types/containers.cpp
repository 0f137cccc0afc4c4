// SPDX-License-Identifier: MIT
#include "vellum/containers.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace Vellum {

namespace {

// Slots beyond the capacity: the sentinel and one past the last element.
constexpr uint32_t kPointSpares = 2;
constexpr uint32_t kNumberSpares = 1;

constexpr uint32_t kInitialStack = 8;
// What an empty capacity grows to, as it cannot be doubled.
constexpr uint32_t kLeastGrown = 2;

// A block of so many elements in the place of `block`, which may be null. Null where there is no memory for it;
// `block` is as it was then.
template <class T>
T* Resized(T* block, uint32_t capacity, uint32_t spares) {
    const uint64_t slots = uint64_t{capacity} + spares;
    if (slots > std::numeric_limits<size_t>::max() / sizeof(T)) return nullptr;
    return static_cast<T*>(std::realloc(block, static_cast<size_t>(slots) * sizeof(T)));
}

template <class T>
bool DoubleCapacity(T*& block, uint32_t& capacity, uint32_t spares) {
    if (capacity > std::numeric_limits<uint32_t>::max() / 2) return false;
    const uint32_t doubled = std::max(2 * capacity, kLeastGrown);
    T* grown = Resized(block, doubled, spares);
    if (grown == nullptr) return false;
    block = grown;
    capacity = doubled;
    return true;
}

}  // namespace

DblPtVec::DblPtVec(unsigned n) : capacity(n), buffer(Resized<DblPt>(nullptr, n, kPointSpares)) {}

DblPtVec::~DblPtVec() {
    std::free(buffer);
    buffer = nullptr;
    capacity = 0;
}

bool DblPtVec::push_back(const DblPt& p) {
    if (buffer == nullptr) return false;
    const DblPt pushed = p;
    // A vector made with no capacity at all starts beyond it.
    if (count >= capacity && !Realloc()) return false;
    buffer[count] = pushed;
    ++count;
    return true;
}

DblPt* DblPtVec::erase(DblPt* pos) {
    if (pos <= rend() || pos >= end()) return nullptr;
    // With the spare slot past the last element, so that the new end() holds what the old one did.
    std::copy(pos + 1, end() + 1, pos);
    --count;
    return pos;
}

bool DblPtVec::Realloc() { return DoubleCapacity(buffer, capacity, kPointSpares); }

DblStk::DblStk() : capacity(kInitialStack), buffer(Resized<double>(nullptr, kInitialStack, kNumberSpares)) {}

DblStk::~DblStk() {
    std::free(buffer);
    buffer = nullptr;
    capacity = 0;
}

bool DblStk::push(const double& v) {
    if (buffer == nullptr) return false;
    const double pushed = v;
    if (count == capacity && !Realloc()) return false;
    buffer[count] = pushed;
    ++count;
    ++topIndex;
    return true;
}

void DblStk::pop() {
    if (empty()) return;
    --count;
    --topIndex;
}

bool DblStk::Realloc() { return DoubleCapacity(buffer, capacity, kNumberSpares); }

}  // namespace Vellum
