// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_PALETTE_H
#define VELLUM_TOOL_PALETTE_H

#include <cstddef>
#include <optional>
#include <string_view>

namespace tool {

/// Red, green and blue from 0 to 1.
struct Colour {
    double red;
    double green;
    double blue;
};

constexpr Colour Rgb(unsigned hex) {
    return {static_cast<double>((hex >> 16) & 255) / 255.0, static_cast<double>((hex >> 8) & 255) / 255.0,
            static_cast<double>(hex & 255) / 255.0};
}

/// The two colours that a feature is drawn in. Lines and points are small: they need more of the colour than an area.
struct Style {
    Colour area;
    Colour line;
};

/// How many styles the palette has.
std::size_t PaletteSize();

/// A style of the palette, which repeats.
Style PaletteStyle(std::size_t index);

/// The same number for the same name, on every machine.
std::size_t NameHash(std::string_view name);

/// The colour written "#rrggbb", or nothing.
std::optional<Colour> ParseColour(std::string_view text);

/// The way from one colour to another: 0 is @p from, 1 is @p to.
Colour Mix(const Colour& from, const Colour& to, double share);

}  // namespace tool

#endif
