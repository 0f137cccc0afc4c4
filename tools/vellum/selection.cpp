// SPDX-License-Identifier: MIT
#include "selection.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <vector>

#include "error.h"
#include "text.h"

namespace tool {

namespace {

bool IsIndex(std::string_view selector) {
    return !selector.empty() &&
           std::all_of(selector.begin(), selector.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Nothing where no feature can have that index.
std::optional<std::size_t> ParseIndex(std::string_view digits) {
    std::size_t index = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
    if (error != std::errc()) return std::nullopt;
    return index;
}

/// Finds one feature, or fails with what the user can do about it.
class Selection {
public:
    Selection(const Drawing& drawing, std::string where) : features_(drawing.features), where_(std::move(where)) {}

    std::size_t ByIndex(const std::string& digits) const {
        const std::optional<std::size_t> index = ParseIndex(digits);
        if (!index || *index >= features_.size()) {
            Fail("there is no feature " + digits + "; the last one is " + std::to_string(features_.size() - 1));
        }
        return *index;
    }

    std::size_t ByName(const std::string& name) const {
        const std::vector<std::size_t> found = Named([&](const std::string& other) { return other == name; });
        if (found.empty() || name.empty()) FailUnknown(name);
        if (found.size() > 1) FailAmbiguous(name, found);
        return found.front();
    }

    void CheckGeometry(std::size_t index) const {
        if (features_[index].geometry.Empty()) Fail("feature " + std::to_string(index) + " has no geometry");
    }

private:
    [[noreturn]] void Fail(const std::string& cause) const { throw Error(where_ + ": " + cause); }

    [[noreturn]] void FailUnknown(const std::string& name) const {
        const std::vector<std::size_t> similar =
            Named([&](const std::string& other) { return !name.empty() && EqualsInAnyCase(other, name); });
        const std::string advice =
            similar.empty() ? "vellum info lists the names" : "there is \"" + features_[similar.front()].name + "\"";
        Fail("no feature is named \"" + name + "\"; " + advice);
    }

    [[noreturn]] void FailAmbiguous(const std::string& name, const std::vector<std::size_t>& found) const {
        constexpr std::size_t kMost = 5;
        std::string list;
        for (std::size_t i = 0; i < std::min(found.size(), kMost); ++i) {
            list += (i == 0 ? "" : ", ") + std::to_string(found[i]);
        }
        if (found.size() > kMost) list += ", ...";
        Fail(std::to_string(found.size()) + " features are named \"" + name + "\"; give the index of one: " + list);
    }

    template <class Fits>
    std::vector<std::size_t> Named(Fits fits) const {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < features_.size(); ++i) {
            if (fits(features_[i].name)) found.push_back(i);
        }
        return found;
    }

    const std::vector<Feature>& features_;
    std::string where_;
};

}  // namespace

std::size_t SelectFeature(const Drawing& drawing, const std::string& file, const std::string& option,
                          const std::string& selector) {
    const Selection selection(drawing, file + ": " + option);
    const std::size_t index = IsIndex(selector) ? selection.ByIndex(selector) : selection.ByName(selector);
    selection.CheckGeometry(index);
    return index;
}

}  // namespace tool
