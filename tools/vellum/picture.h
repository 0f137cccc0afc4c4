// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_PICTURE_H
#define VELLUM_TOOL_PICTURE_H

#include <functional>
#include <optional>
#include <string>

#include "canvas.h"
#include "output_file.h"
#include "progress.h"
#include "view.h"

namespace tool {

enum class PictureFormat { Png, Svg, Pdf };

/// The format that a file's extension names, if it does.
std::optional<PictureFormat> FormatNamedBy(const std::string& path);

/// The same. Throws `Error` where the extension names none.
PictureFormat FormatOf(const std::string& path);

/// A picture on its way into a file.
///
/// A PNG is smoothed by drawing it eight times as wide and high, tile by tile, and averaging. The renderer's own
/// smoothing treats a row of pixels differently where some edge begins or ends in it, even outside the picture; so it
/// would show where a drawing was clipped.
class Picture {
public:
    /// Throws `Error` where there is no memory for a picture of that size. @p file must outlive the picture.
    Picture(PictureFormat format, const PictureSize& size, OutputFile& file);

    /// Calls @p paint for every part of the picture in turn. Each time it must draw the whole drawing.
    void Paint(const std::function<void(Canvas&)>& paint, Progress& progress);

    /// Writes the picture to the file. Throws `Error` where that fails; a failure of the file is left to the file.
    void Finish();

private:
    void PaintTiles(const std::function<void(Canvas&)>& paint, Progress& progress);
    void TakeTile(cairo_surface_t* tile, int left, int top);

    PictureFormat format_;
    PictureSize size_;
    OutputFile& file_;
    CairoSurface surface_;
};

/// Draws a picture into the file at @p path, in the format that its extension names. Throws `Error` where it cannot be
/// drawn or written; no part of it is left behind then.
void DrawPicture(const std::string& path, const PictureSize& size, const std::function<void(Canvas&)>& paint,
                 Progress& progress);

}  // namespace tool

#endif
