// SPDX-License-Identifier: MIT
#include "utf16.h"

#include <cstddef>

namespace tool {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

char32_t UnitAt(const char* bytes) {
    return static_cast<unsigned char>(bytes[0]) | static_cast<char32_t>(static_cast<unsigned char>(bytes[1])) << 8;
}

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }

bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// Takes one character off the front.
char32_t NextCharacter(const char*& bytes) {
    const char32_t unit = UnitAt(bytes);
    bytes += 2;
    if (IsLowSurrogate(unit)) return kReplacement;
    if (!IsHighSurrogate(unit)) return unit;
    const char32_t low = UnitAt(bytes);
    if (!IsLowSurrogate(low)) return kReplacement;
    bytes += 2;
    return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

void Append(std::string& text, char32_t character) {
    const auto continuation = [character](int shift) { return static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += {static_cast<char>(0xC0 | character >> 6), continuation(0)};
    } else if (character < 0x10000) {
        text += {static_cast<char>(0xE0 | character >> 12), continuation(6), continuation(0)};
    } else {
        text += {static_cast<char>(0xF0 | character >> 18), continuation(12), continuation(6), continuation(0)};
    }
}

}  // namespace

std::string Utf8FromUtf16(const char* bytes) {
    std::string text;
    while (const char32_t character = NextCharacter(bytes))
        Append(text, character);
    return text;
}

}  // namespace tool
