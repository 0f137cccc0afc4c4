// SPDX-License-Identifier: MIT
#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "cairo_canvas.h"
#include "output_file.h"
#include "picture.h"
#include "platform.h"

namespace tool {

namespace {

enum class PictureFormat { Png, Svg, Pdf };

// Samples across a pixel.
constexpr int kSamples = 8;

// In pixels of the picture.
constexpr int kTile = 256;

cairo_status_t WriteToFile(void* file, const unsigned char* bytes, unsigned count) {
    return static_cast<OutputFile*>(file)->Write(bytes, count) ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

CairoSurface NewSurface(PictureFormat format, const PictureSize& size, OutputFile& file) {
    switch (format) {
        case PictureFormat::Svg:
            return CairoSurface(cairo_svg_surface_create_for_stream(WriteToFile, &file, size.width, size.height));
        case PictureFormat::Pdf:
            return CairoSurface(cairo_pdf_surface_create_for_stream(WriteToFile, &file, size.width, size.height));
        case PictureFormat::Png:
            break;
    }
    return CairoSurface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height));
}

DeviceBox InUnits(int left, int top, int width, int height) {
    return {left * kUnitsPerPixel, top * kUnitsPerPixel, (left + width) * kUnitsPerPixel,
            (top + height) * kUnitsPerPixel};
}

/// The pixels of an image surface, row by row. The renderer is told before they are read and after they are written.
class Pixels {
public:
    explicit Pixels(cairo_surface_t* surface) : surface_(surface) {
        cairo_surface_flush(surface);
        bytes_ = cairo_image_surface_get_data(surface);
        stride_ = cairo_image_surface_get_stride(surface);
    }
    ~Pixels() { cairo_surface_mark_dirty(surface_); }
    Pixels(const Pixels&) = delete;
    Pixels& operator=(const Pixels&) = delete;

    uint32_t* Row(int y) const { return reinterpret_cast<uint32_t*>(bytes_ + std::ptrdiff_t{y} * stride_); }

private:
    cairo_surface_t* surface_;
    unsigned char* bytes_;
    int stride_;
};

/// The mean of a square of samples. Blue and red are summed side by side in one number, and so are green and nothing.
uint32_t Mean(const Pixels& samples, int left, int top) {
    constexpr uint32_t kCount = kSamples * kSamples;
    constexpr uint32_t kHalves = (kCount / 2) * 0x00010001U;
    constexpr uint32_t kPair = 0x00ff00ffU;
    uint32_t redBlue = kHalves;
    uint32_t green = kHalves;
    for (int y = 0; y < kSamples; ++y) {
        const uint32_t* row = samples.Row(top + y) + left;
        for (int x = 0; x < kSamples; ++x) {
            redBlue += row[x] & kPair;
            green += (row[x] >> 8) & kPair;
        }
    }
    return ((redBlue / kCount) & kPair) | (((green / kCount) & kPair) << 8);
}

std::optional<PictureFormat> FormatNamedBy(const std::string& path) {
    const std::filesystem::path extension = PathOf(path).extension();
    if (extension == ".png") return PictureFormat::Png;
    if (extension == ".svg") return PictureFormat::Svg;
    if (extension == ".pdf") return PictureFormat::Pdf;
    return std::nullopt;
}

/// A PNG is smoothed by drawing it eight times as wide and high, tile by tile, and averaging. The renderer's own
/// smoothing treats a row of pixels differently where some edge begins or ends in it, even outside the picture; so it
/// would show where a drawing was clipped.
class CairoPicture : public Picture {
public:
    CairoPicture(const std::string& path, PictureFormat format, const PictureSize& size);

    void Paint(const std::function<void(Canvas&)>& paint, Progress& progress) override;
    void Finish() override;

private:
    void PaintTiles(const std::function<void(Canvas&)>& paint, Progress& progress);
    void TakeTile(cairo_surface_t* tile, int left, int top);

    PictureFormat format_;
    PictureSize size_;
    OutputFile file_;
    CairoSurface surface_;
};

CairoPicture::CairoPicture(const std::string& path, PictureFormat format, const PictureSize& size)
    : format_(format), size_(size), file_(path), surface_(NewSurface(format_, size, file_)) {
    CheckCairo(cairo_surface_status(surface_.get()));
}

void CairoPicture::Paint(const std::function<void(Canvas&)>& paint, Progress& progress) {
    if (format_ == PictureFormat::Png) {
        PaintTiles(paint, progress);
    } else {
        CairoCanvas canvas(surface_.get(), size_, InUnits(0, 0, size_.width, size_.height), Strokes::Joined);
        paint(canvas);
        canvas.Check();
    }
}

void CairoPicture::PaintTiles(const std::function<void(Canvas&)>& paint, Progress& progress) {
    const int across = (size_.width + kTile - 1) / kTile;
    const int down = (size_.height + kTile - 1) / kTile;
    progress.Begin("drawing", static_cast<std::size_t>(across) * static_cast<std::size_t>(down));
    const CairoSurface tile(cairo_image_surface_create(CAIRO_FORMAT_RGB24, kTile * kSamples, kTile * kSamples));
    CheckCairo(cairo_surface_status(tile.get()));
    cairo_surface_set_device_scale(tile.get(), kSamples, kSamples);
    for (int top = 0; top < size_.height; top += kTile) {
        for (int left = 0; left < size_.width; left += kTile) {
            cairo_surface_set_device_offset(tile.get(), -left * kSamples, -top * kSamples);
            CairoCanvas canvas(tile.get(), size_, InUnits(left, top, kTile, kTile), Strokes::Separate);
            paint(canvas);
            canvas.Check();
            TakeTile(tile.get(), left, top);
            progress.Advance();
        }
    }
}

void CairoPicture::TakeTile(cairo_surface_t* tile, int left, int top) {
    const Pixels samples(tile);
    const Pixels pixels(surface_.get());
    const int right = std::min(left + kTile, size_.width);
    const int bottom = std::min(top + kTile, size_.height);
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x) {
            pixels.Row(y)[x] = Mean(samples, (x - left) * kSamples, (y - top) * kSamples);
        }
    }
}

void CairoPicture::Finish() {
    if (format_ == PictureFormat::Png) {
        CheckCairo(cairo_surface_write_to_png_stream(surface_.get(), WriteToFile, &file_));
    }
    cairo_surface_finish(surface_.get());
    CheckCairo(cairo_surface_status(surface_.get()));
    file_.Commit();
}

}  // namespace

std::string PictureExtensions() { return ".png, .svg or .pdf"; }

bool NamesPicture(const std::string& path) { return FormatNamedBy(path).has_value(); }

std::unique_ptr<Picture> NewPicture(const std::string& path, const PictureSize& size) {
    CheckPictureName(path);
    return std::make_unique<CairoPicture>(path, FormatNamedBy(path).value(), size);
}

}  // namespace tool
