// SPDX-License-Identifier: MIT
#include "view_options.h"

#include "arguments.h"
#include "command_line.h"

namespace tool {

void ViewOptions::AddTo(Verb& verb, const std::string& subject) {
    verb.Text("--center", center_, "The view's centre in model units (default: that of " + subject + ")")
        .Placeholder("X,Y");
    verb.Text("--width", width_, "The view's width in model units (default: " + subject + " with a margin)")
        .Placeholder("W");
    verb.Text("--rotate", rotation_, "Turn the view counter-clockwise about its centre")
        .Placeholder("DEGREES")
        .ShowDefault();
    verb.Text("--size", size_, "The picture's size in pixels; its shape gives the view's height")
        .Placeholder("WxH")
        .ShowDefault();
}

ViewRequest ViewOptions::Request() const {
    ViewRequest request;
    if (!center_.empty()) request.center = ParsePoint("--center", center_);
    if (!width_.empty()) request.width = ParseLength("--width", width_);
    request.rotation = ParseNumber("--rotate", rotation_);
    return request;
}

PictureSize ViewOptions::Size() const { return ParseSize("--size", size_); }

}  // namespace tool
