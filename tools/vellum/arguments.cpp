// SPDX-License-Identifier: MIT
#include "arguments.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

#include "drawing.h"
#include "error.h"

namespace tool {

namespace {

// What the image surfaces of the renderer hold at most.
constexpr int kLargestSide = 32767;

template <class Number>
std::optional<Number> WholeText(std::string_view text) {
    Number number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

std::optional<double> Coordinate(std::string_view text) {
    const std::optional<double> number = WholeText<double>(text);
    if (!number || !(std::fabs(*number) <= kLargestCoordinate)) return std::nullopt;
    return number;
}

std::optional<int> Side(std::string_view text) {
    const std::optional<int> side = WholeText<int>(text);
    if (!side || *side < 1 || *side > kLargestSide) return std::nullopt;
    return side;
}

[[noreturn]] void Refuse(const std::string& option, const std::string& text, const std::string& wanted) {
    throw Error(option + ": \"" + text + "\" is not " + wanted);
}

}  // namespace

double ParseNumber(const std::string& option, const std::string& text) {
    const std::optional<double> number = Coordinate(text);
    if (!number) Refuse(option, text, "a number between -1e30 and 1e30");
    return *number;
}

double ParseLength(const std::string& option, const std::string& text) {
    const std::optional<double> number = Coordinate(text);
    if (!number || *number <= 0.0) Refuse(option, text, "a number above 0 and up to 1e30");
    return *number;
}

double ParseTolerance(const std::string& option, const std::string& text) {
    const std::optional<double> number = Coordinate(text);
    if (!number || *number < 0.0) Refuse(option, text, "a number from 0 to 1e30");
    return *number;
}

Vellum::DblPt ParsePoint(const std::string& option, const std::string& text) {
    const std::string_view view = text;
    const std::size_t comma = view.find(',');
    if (comma != std::string_view::npos) {
        const std::optional<double> x = Coordinate(view.substr(0, comma));
        const std::optional<double> y = Coordinate(view.substr(comma + 1));
        if (x && y) return {*x, *y};
    }
    Refuse(option, text, "a point X,Y of two numbers between -1e30 and 1e30");
}

PictureSize ParseSize(const std::string& option, const std::string& text) {
    const std::string_view view = text;
    const std::size_t cross = view.find('x');
    if (cross != std::string_view::npos) {
        const std::optional<int> width = Side(view.substr(0, cross));
        const std::optional<int> height = Side(view.substr(cross + 1));
        if (width && height) return {*width, *height};
    }
    Refuse(option, text, "a size WxH of two whole numbers from 1 to 32767");
}

}  // namespace tool
