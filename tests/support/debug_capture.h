// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_SUPPORT_DEBUG_CAPTURE_H
#define VELLUM_TESTS_SUPPORT_DEBUG_CAPTURE_H

#include <string>
#include <vector>

namespace support {

/// The texts that reached the debugger output since the last call, one for each message. A test program that uses it
/// compiles support/debug_capture.cpp, and with that comes the platform's part, which receives them as a host does.
std::vector<std::string> TakeDebugTexts();

/// For the platform's part: a text that reached the debugger output.
void AddDebugText(const char* text);

}  // namespace support

#endif
