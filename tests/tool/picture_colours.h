// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_TOOL_PICTURE_COLOURS_H
#define VELLUM_TESTS_TOOL_PICTURE_COLOURS_H

#include <cstdint>

/// What pictures show where nothing stands out, as 0xrrggbb.
namespace tool_test {

constexpr uint32_t kBackground = 0xe4eef4;
constexpr uint32_t kPale = 0xf7f5f0;  ///< a map under something else
constexpr uint32_t kPaper = 0xffffff;
constexpr uint32_t kInk = 0x2f3b4a;

}  // namespace tool_test

#endif
