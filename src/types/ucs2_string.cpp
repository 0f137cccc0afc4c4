// SPDX-License-Identifier: MIT
#include "vellum/ucs2_string.h"

#include <algorithm>
#include <cstddef>
#include <new>

namespace Vellum {

namespace {

constexpr uint16_t kMaxLength = 513;

uint16_t LengthOf(const uint16_t* s) {
    uint16_t length = 0;
    while (length < kMaxLength && s[length] != 0)
        ++length;
    return length;
}

// A new block of the characters with so many zeros behind them; null where there is no memory.
uint16_t* NewBlock(const uint16_t* characters, size_t length, size_t zeros) {
    uint16_t* block = new (std::nothrow) uint16_t[length + zeros]();
    if (block != nullptr) std::copy_n(characters, length, block);
    return block;
}

}  // namespace

UCS2String::UCS2String(const unsigned short* s) : UCS2String() {
    if (s == nullptr) return;
    const uint16_t characters = LengthOf(s);
    buffer = NewBlock(s, characters, 1);
    if (buffer != nullptr) length = characters;
}

UCS2String::UCS2String(const UCS2String& other) : UCS2String() {
    if (other.length == 0) return;
    buffer = NewBlock(other.buffer, other.length, 1);
    if (buffer != nullptr) length = other.length;
}

UCS2String& UCS2String::operator=(const UCS2String& other) {
    if (this == &other) return *this;
    delete[] buffer;
    buffer = nullptr;
    length = 0;
    if (other.length == 0) return *this;
    buffer = NewBlock(other.buffer, other.length, 0);
    if (buffer != nullptr) length = other.length;
    return *this;
}

UCS2String::~UCS2String() {
    delete[] buffer;
    buffer = nullptr;
    length = 0;
}

}  // namespace Vellum
