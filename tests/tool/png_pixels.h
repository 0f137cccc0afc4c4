// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_TOOL_PNG_PIXELS_H
#define VELLUM_TESTS_TOOL_PNG_PIXELS_H

#include <cstdint>
#include <string>
#include <vector>

namespace tool_test {

/// The pixels of a PNG file.
class PngPixels {
public:
    explicit PngPixels(const std::string& path);

    int Width() const { return width_; }
    int Height() const { return height_; }

    /// As 0xrrggbb.
    uint32_t At(int x, int y) const;

    /// How many pixels have that colour.
    int Count(uint32_t colour) const;

    /// How many pixels differ; all of them where the sizes do.
    static int Differences(const PngPixels& a, const PngPixels& b);

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<uint32_t> pixels_;
};

}  // namespace tool_test

#endif
