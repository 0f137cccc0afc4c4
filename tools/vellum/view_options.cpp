// SPDX-License-Identifier: MIT
#include "view_options.h"

#include <CLI/CLI.hpp>

#include "arguments.h"

namespace tool {

void ViewOptions::AddTo(CLI::App& verb, const std::string& subject) {
    verb.add_option("--center", center_, "The view's centre in model units (default: that of " + subject + ")")
        ->type_name("X,Y");
    verb.add_option("--width", width_, "The view's width in model units (default: " + subject + " with a margin)")
        ->type_name("W");
    verb.add_option("--rotate", rotation_, "Turn the view counter-clockwise about its centre")
        ->type_name("DEGREES")
        ->capture_default_str();
    verb.add_option("--size", size_, "The picture's size in pixels; its shape gives the view's height")
        ->type_name("WxH")
        ->capture_default_str();
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
