// SPDX-License-Identifier: MIT
#include "text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tool {

namespace {

// Enough for every double, however it is written here.
using NumberBuffer = std::array<char, 64>;

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }, '?');
    return text;
}

bool EqualsInAnyCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Lower(x) == Lower(y); });
}

std::string ExactText(double number) {
    NumberBuffer buffer;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), end};
}

std::string ExactText(const Vellum::DblPt& point) { return '(' + ExactText(point.x) + ", " + ExactText(point.y) + ')'; }

std::string RoundedText(double number, int digits) {
    NumberBuffer buffer;
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::general, digits);
    return {buffer.data(), end};
}

}  // namespace tool
