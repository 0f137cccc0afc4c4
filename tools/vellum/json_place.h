// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_JSON_PLACE_H
#define VELLUM_TOOL_JSON_PLACE_H

#include <cstddef>
#include <string>

namespace tool {

/// Where a value stands in a JSON document. A place points to the one that it was made from, which must outlive it; so
/// nothing is spelled out until a message needs it.
class JsonPlace {
public:
    /// The document itself.
    JsonPlace() = default;

    JsonPlace Member(const char* name) const { return JsonPlace(this, name, 0); }
    JsonPlace Element(std::size_t index) const { return JsonPlace(this, nullptr, index); }

    /// Such as "features[12].geometry.coordinates[0][3]"; empty for the document.
    std::string Text() const {
        if (!parent_) return {};
        const std::string before = parent_->Text();
        if (!name_) return before + '[' + std::to_string(index_) + ']';
        return before.empty() ? name_ : before + '.' + name_;
    }

private:
    JsonPlace(const JsonPlace* parent, const char* name, std::size_t index)
        : parent_(parent), name_(name), index_(index) {}

    const JsonPlace* parent_ = nullptr;
    const char* name_ = nullptr;
    std::size_t index_ = 0;
};

}  // namespace tool

#endif
