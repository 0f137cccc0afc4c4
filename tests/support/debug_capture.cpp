// SPDX-License-Identifier: MIT
#include "support/debug_capture.h"

#include <utility>

namespace support {

namespace {

std::vector<std::string> texts;

}  // namespace

void AddDebugText(const char* text) { texts.emplace_back(text); }

std::vector<std::string> TakeDebugTexts() { return std::exchange(texts, {}); }

}  // namespace support
