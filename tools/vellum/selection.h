// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_SELECTION_H
#define VELLUM_TOOL_SELECTION_H

#include <cstddef>
#include <string>

#include "drawing.h"

namespace tool {

/// The place of the feature that @p selector names: digits are the place itself, counted from 0, anything else is a
/// name. Throws `Error`, naming @p file and @p option, where that is not one feature, and where it has no geometry.
std::size_t SelectFeature(const Drawing& drawing, const std::string& file, const std::string& option,
                          const std::string& selector);

}  // namespace tool

#endif
