// SPDX-License-Identifier: MIT
#include "support/debug_capture.h"
#include "vellum/geometry.h"

// In place of the library's own.
extern "C" void VellumDebugOutput(const char* text) { support::AddDebugText(text); }
