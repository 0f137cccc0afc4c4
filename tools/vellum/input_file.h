// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_INPUT_FILE_H
#define VELLUM_TOOL_INPUT_FILE_H

#include <string>

namespace tool {

/// All that the file holds. Throws `Error`, naming the file, where it cannot be read or is larger than 1 GiB: up to
/// there no count of points in it exceeds what the library's 32-bit counts hold.
std::string ReadFile(const std::string& path);

}  // namespace tool

#endif
