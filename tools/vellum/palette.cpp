// SPDX-License-Identifier: MIT
#include "palette.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace tool {

namespace {

// Alike in lightness, so that no feature shouts, and ordered so that neighbouring places differ in hue.
constexpr std::array<Colour, 8> kPalette = {Rgb(0xe9cb9f), Rgb(0xb4cd9f), Rgb(0xdca79b), Rgb(0xc3afcf),
                                            Rgb(0xe6d98f), Rgb(0x97c4b4), Rgb(0xa0b9d6), Rgb(0xcfae88)};

/// The same hue, dark enough for a line: the third power spreads the channels, where plain darkening would grey them.
Colour Deep(const Colour& c) { return {c.red * c.red * c.red, c.green * c.green * c.green, c.blue * c.blue * c.blue}; }

}  // namespace

std::size_t PaletteSize() { return kPalette.size(); }

Style PaletteStyle(std::size_t index) {
    const Colour& colour = kPalette[index % kPalette.size()];
    return {colour, Deep(colour)};
}

std::size_t NameHash(std::string_view name) {
    uint32_t hash = 2166136261U;
    for (const char c : name) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    }
    return hash;
}

std::optional<Colour> ParseColour(std::string_view text) {
    if (text.size() != 7 || text.front() != '#') return std::nullopt;
    unsigned hex = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + 1, end, hex, 16);
    if (error != std::errc() || stop != end) return std::nullopt;
    return Rgb(hex);
}

Colour Mix(const Colour& from, const Colour& to, double share) {
    return {from.red + (to.red - from.red) * share, from.green + (to.green - from.green) * share,
            from.blue + (to.blue - from.blue) * share};
}

}  // namespace tool
