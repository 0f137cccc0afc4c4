// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_FONTS_FONT_PATHS_H
#define VELLUM_SRC_FONTS_FONT_PATHS_H

#include <array>
#include <cstddef>
#include <new>
#include <utility>

#include "fonts/owned_text.h"

namespace Vellum::internal {

/// Paths as they are found, up to a fixed number.
template <size_t kMost>
class FontPaths {
public:
    bool IsFull() const { return count_ == kMost; }

    /// There must be room.
    void Add(OwnedText path) { paths_[count_++] = std::move(path); }

    const OwnedText* begin() const { return paths_.data(); }
    const OwnedText* end() const { return paths_.data() + count_; }

    /// Hands all paths out in a null-ended array. Null, with the paths kept, where there is none or memory runs out.
    char** Release() {
        if (count_ == 0) return nullptr;
        char** list = new (std::nothrow) char*[count_ + 1];
        if (list == nullptr) return nullptr;
        for (size_t i = 0; i < count_; ++i)
            list[i] = paths_[i].release();
        list[count_] = nullptr;
        count_ = 0;
        return list;
    }

private:
    std::array<OwnedText, kMost> paths_;
    size_t count_ = 0;
};

}  // namespace Vellum::internal

#endif
