// SPDX-License-Identifier: MIT
#include "support/debug_capture.h"

#include <utility>

#include "vellum/geometry.h"

namespace {

std::vector<std::string> texts;

}  // namespace

extern "C" void VellumDebugOutput(const char* text) { texts.emplace_back(text); }

namespace support {

std::vector<std::string> TakeDebugTexts() { return std::exchange(texts, {}); }

}  // namespace support
