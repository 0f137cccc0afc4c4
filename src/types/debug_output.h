// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_TYPES_DEBUG_OUTPUT_H
#define VELLUM_SRC_TYPES_DEBUG_OUTPUT_H

namespace Vellum::internal {

/// Hands a text to the platform's debugger output.
void WriteDebugText(const char* text);

/// Sounds the platform's bell.
void SoundBell();

}  // namespace Vellum::internal

#endif
