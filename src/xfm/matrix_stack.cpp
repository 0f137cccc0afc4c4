// SPDX-License-Identifier: MIT
#include "vellum/matrix_stack.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>

namespace Vellum {

namespace {

constexpr uint32_t kInitialCapacity = 8;

// A new array that begins with `count` matrices of `from`; the others are the identity. Null where there is no
// memory.
Mtx2D* NewArray(uint32_t capacity, const Mtx2D* from, uint32_t count) {
    const uint64_t size = uint64_t{capacity} + 1;
    if (size > std::numeric_limits<size_t>::max() / sizeof(Mtx2D)) return nullptr;
    Mtx2D* array = new (std::nothrow) Mtx2D[static_cast<size_t>(size)];
    if (array != nullptr) std::copy_n(from, count, array);
    return array;
}

}  // namespace

Mtx2DStk::Mtx2DStk() : capacity(kInitialCapacity), mtx(NewArray(kInitialCapacity, nullptr, 0)) {}

Mtx2DStk::~Mtx2DStk() {
    delete[] mtx;
    mtx = nullptr;
    capacity = 0;
}

Mtx2DStk& Mtx2DStk::operator=(const Mtx2DStk& s) {
    if (this == &s) return *this;
    Mtx2D* copy = NewArray(s.capacity, s.mtx, s.mtx == nullptr ? 0 : s.capacity);
    if (copy == nullptr) return *this;
    delete[] mtx;
    mtx = copy;
    capacity = s.capacity;
    count = s.count;
    topIndex = s.topIndex;
    return *this;
}

bool Mtx2DStk::push(const Mtx2D& m) {
    if (mtx == nullptr) return false;
    const Mtx2D pushed = m;
    if (count == capacity && !Realloc()) return false;
    mtx[count] = pushed;
    ++count;
    ++topIndex;
    return true;
}

void Mtx2DStk::pop() {
    if (empty()) return;
    --count;
    --topIndex;
}

bool Mtx2DStk::Realloc() {
    if (mtx == nullptr || capacity > std::numeric_limits<uint32_t>::max() / 2) return false;
    Mtx2D* grown = NewArray(2 * capacity, mtx, capacity);
    if (grown == nullptr) return false;
    delete[] mtx;
    mtx = grown;
    capacity *= 2;
    return true;
}

}  // namespace Vellum
