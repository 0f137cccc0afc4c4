// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_SCRATCH_ARRAY_H
#define VELLUM_SRC_PATHS_SCRATCH_ARRAY_H

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>

namespace Vellum::internal {

/// Working memory of one call: it grows by doubling and reports exhausted memory instead of throwing.
template <class T>
class ScratchArray {
public:
    size_t Size() const { return size_; }
    bool IsEmpty() const { return size_ == 0; }
    void Clear() { size_ = 0; }
    /// Gives the memory back.
    void Release() { *this = {}; }

    T& operator[](size_t i) { return items_[i]; }
    const T& operator[](size_t i) const { return items_[i]; }
    T* begin() { return items_.get(); }
    T* end() { return items_.get() + size_; }
    const T* begin() const { return items_.get(); }
    const T* end() const { return items_.get() + size_; }

    bool Append(const T& item) {
        if (size_ == capacity_ && !Grow(size_ + 1)) return false;
        items_[size_++] = item;
        return true;
    }

    /// Makes it @p size items long; the ones added are of no particular value.
    bool Resize(size_t size) {
        if (!Reserve(size)) return false;
        size_ = size;
        return true;
    }

    /// Lets so many items in all be appended without fail.
    bool Reserve(size_t size) { return size <= capacity_ || Grow(size); }

private:
    bool Grow(size_t least) {
        if (least > std::numeric_limits<size_t>::max() / (2 * sizeof(T))) return false;
        const size_t capacity = std::max(least, std::max<size_t>(2 * capacity_, 256));
        std::unique_ptr<T[]> grown(new (std::nothrow) T[capacity]);
        if (!grown) return false;
        std::copy_n(items_.get(), size_, grown.get());
        items_ = std::move(grown);
        capacity_ = capacity;
        return true;
    }

    std::unique_ptr<T[]> items_;
    size_t size_ = 0;
    size_t capacity_ = 0;
};

}  // namespace Vellum::internal

#endif
