// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_PICTURE_H
#define VELLUM_TOOL_PICTURE_H

#include <functional>
#include <memory>
#include <string>

#include "canvas.h"
#include "progress.h"
#include "view.h"

namespace tool {

/// The extensions of the formats that this build draws, for a text: ".png, .svg or .pdf".
std::string PictureExtensions();

/// Whether a file's extension names such a format. Throws `Error` where it names one that other builds draw.
bool NamesPicture(const std::string& path);

/// Throws `Error` for a file whose extension names no such format.
void CheckPictureName(const std::string& path);

/// A picture on its way into a file, of which nothing is left behind unless it is finished.
class Picture {
public:
    Picture() = default;
    virtual ~Picture() = default;
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    /// Calls @p paint for every part of the picture in turn. Each time it must draw the whole drawing.
    virtual void Paint(const std::function<void(Canvas&)>& paint, Progress& progress) = 0;

    /// Puts the picture where it belongs. Throws `Error` where anything of it could not be drawn or written.
    virtual void Finish() = 0;
};

/// A picture for the file at @p path, in the format that its extension names. Throws `Error` where there can be no such
/// file, and where there is no memory for a picture of that size.
std::unique_ptr<Picture> NewPicture(const std::string& path, const PictureSize& size);

/// Paints and finishes such a picture.
void DrawPicture(const std::string& path, const PictureSize& size, const std::function<void(Canvas&)>& paint,
                 Progress& progress);

}  // namespace tool

#endif
