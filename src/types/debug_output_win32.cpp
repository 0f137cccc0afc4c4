// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include "types/debug_output.h"

#include <windows.h>

namespace Vellum::internal {

void WriteDebugText(const char* text) { OutputDebugStringA(text); }

void SoundBell() { MessageBeep(MB_ICONEXCLAMATION); }

}  // namespace Vellum::internal
