// SPDX-License-Identifier: MIT
#include "png_pixels.h"

#include <cairo.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <stdexcept>

namespace tool_test {

PngPixels::PngPixels(const std::string& path) {
    cairo_surface_t* surface = cairo_image_surface_create_from_png(path.c_str());
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(surface);
        throw std::runtime_error(path + " is not a PNG file");
    }
    width_ = cairo_image_surface_get_width(surface);
    height_ = cairo_image_surface_get_height(surface);
    const unsigned char* bytes = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    const auto width = static_cast<std::size_t>(width_);
    pixels_.resize(width * static_cast<std::size_t>(height_));
    for (int y = 0; y < height_; ++y) {
        std::memcpy(&pixels_[static_cast<std::size_t>(y) * width], bytes + std::ptrdiff_t{y} * stride, width * 4);
    }
    for (uint32_t& pixel : pixels_) {
        pixel &= 0xffffffU;
    }
    cairo_surface_destroy(surface);
}

uint32_t PngPixels::At(int x, int y) const {
    return pixels_.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x));
}

int PngPixels::Count(uint32_t colour) const {
    return static_cast<int>(std::count(pixels_.begin(), pixels_.end(), colour));
}

int PngPixels::Differences(const PngPixels& a, const PngPixels& b) {
    if (a.width_ != b.width_ || a.height_ != b.height_) return static_cast<int>(a.pixels_.size());
    int differences = 0;
    for (std::size_t i = 0; i < a.pixels_.size(); ++i) {
        differences += a.pixels_[i] != b.pixels_[i] ? 1 : 0;
    }
    return differences;
}

}  // namespace tool_test
