// SPDX-License-Identifier: MIT
#include "picture.h"

#include "error.h"

namespace tool {

void CheckPictureName(const std::string& path) {
    if (!NamesPicture(path)) throw Error(path + ": the name of a picture must end in " + PictureExtensions());
}

void DrawPicture(const std::string& path, const PictureSize& size, const std::function<void(Canvas&)>& paint,
                 Progress& progress) {
    const std::unique_ptr<Picture> picture = NewPicture(path, size);
    picture->Paint(paint, progress);
    picture->Finish();
}

}  // namespace tool
