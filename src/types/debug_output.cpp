// SPDX-License-Identifier: MIT
#include "types/debug_output.h"

#include <cstdarg>
#include <cstdio>

#include "vellum/geometry.h"

namespace Vellum {

void DbgPrintf(const char* fmt, ...) {
    char text[1024];
    std::va_list args;
    va_start(args, fmt);
    const int length = std::vsnprintf(text, sizeof text, fmt, args);
    va_end(args);
    if (length >= 0) internal::WriteDebugText(text);
}

void DbgBeep() { internal::SoundBell(); }

}  // namespace Vellum
