// SPDX-License-Identifier: MIT
#include "picture.h"

namespace tool {

void DrawPicture(const std::string& path, const PictureSize& size, const std::function<void(Canvas&)>& paint,
                 Progress& progress) {
    const std::unique_ptr<Picture> picture = NewPicture(path, size);
    picture->Paint(paint, progress);
    picture->Finish();
}

}  // namespace tool
