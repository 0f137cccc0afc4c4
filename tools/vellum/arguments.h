// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_ARGUMENTS_H
#define VELLUM_TOOL_ARGUMENTS_H

#include <string>

#include "vellum/points.h"
#include "view.h"

/// Reading the values of options. Each throws `Error`, naming the option, where the text is not such a value.
namespace tool {

/// A finite number within the largest coordinate.
double ParseNumber(const std::string& option, const std::string& text);

/// A number above 0.
double ParseLength(const std::string& option, const std::string& text);

/// A number from 0.
double ParseTolerance(const std::string& option, const std::string& text);

/// "X,Y".
Vellum::DblPt ParsePoint(const std::string& option, const std::string& text);

/// "WxH" in whole pixels.
PictureSize ParseSize(const std::string& option, const std::string& text);

}  // namespace tool

#endif
