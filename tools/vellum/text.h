// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_TEXT_H
#define VELLUM_TOOL_TEXT_H

#include <string>
#include <string_view>

#include "vellum/points.h"

namespace tool {

/// The text with a question mark for every control character, so that it stays on its line.
std::string OneLine(std::string text);

/// Whether two texts are the same but for the case of the letters a to z.
bool EqualsInAnyCase(std::string_view a, std::string_view b);

/// The shortest text that reads back as the same number.
std::string ExactText(double number);

/// The point as "(X, Y)", in exact texts.
std::string ExactText(const Vellum::DblPt& point);

/// The number to @p digits significant digits.
std::string RoundedText(double number, int digits);

}  // namespace tool

#endif
