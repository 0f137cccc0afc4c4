// SPDX-License-Identifier: MIT

#include <filesystem>

#include "error.h"
#include "output_file.h"
#include "picture.h"
#include "platform.h"
#include "svg_canvas.h"

namespace tool {

namespace {

class SvgPicture : public Picture {
public:
    SvgPicture(const std::string& path, const PictureSize& size) : file_(path), canvas_(size) {}

    void Paint(const std::function<void(Canvas&)>& paint, Progress&) override { paint(canvas_); }

    void Finish() override {
        const std::string document = canvas_.Document();
        file_.Write(document.data(), document.size());
        file_.Commit();
    }

private:
    OutputFile file_;
    SvgCanvas canvas_;
};

}  // namespace

std::string PictureExtensions() { return ".svg"; }

bool NamesPicture(const std::string& path) {
    const std::filesystem::path extension = PathOf(path).extension();
    if (extension == ".png" || extension == ".pdf")
        throw Error(path + ": this build of vellum draws SVG pictures only, not PNG or PDF");
    return extension == ".svg";
}

std::unique_ptr<Picture> NewPicture(const std::string& path, const PictureSize& size) {
    return std::make_unique<SvgPicture>(path, size);
}

}  // namespace tool
