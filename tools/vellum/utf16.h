// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_UTF16_H
#define VELLUM_TOOL_UTF16_H

#include <string>

namespace tool {

/// A text of UTF-16 in little-endian bytes that end with two zero bytes, as UTF-8. What is half of a pair of surrogates
/// becomes the replacement character.
std::string Utf8FromUtf16(const char* bytes);

}  // namespace tool

#endif
