// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_STANDARD_OUTPUT_H
#define VELLUM_TOOL_STANDARD_OUTPUT_H

namespace tool {

/// Hands over what stands in `std::cout`. Throws `Error` where it, or anything before it, could not be written.
void FinishOutput();

}  // namespace tool

#endif
