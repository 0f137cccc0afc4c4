// SPDX-License-Identifier: MIT
#include "json_document.h"

#include <algorithm>
#include <string_view>

#include "error.h"

namespace tool {

namespace {

using Json = nlohmann::json;

/// Takes nothing in but the error at which the parser stops.
class ErrorLocator : public nlohmann::json_sax<Json> {
public:
    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool string(string_t&) override { return true; }
    bool binary(binary_t&) override { return true; }
    bool start_object(std::size_t) override { return true; }
    bool key(string_t&) override { return true; }
    bool end_object() override { return true; }
    bool start_array(std::size_t) override { return true; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t position, const std::string&, const Json::exception& error) override {
        position_ = position;
        what_ = error.what();
        return false;
    }

    /// The offset of the character at which the parser stopped.
    std::size_t Offset() const { return position_ - 1; }

    /// The parser's words without what the caller says better: its identifiers, the position, and the token it stood
    /// at, which may be as long as the file.
    std::string Cause() const {
        std::string_view cause = what_;
        for (const std::string_view before : {std::string_view("] "), std::string_view(" - ")}) {
            const std::size_t at = cause.find(before);
            if (at != std::string_view::npos) cause.remove_prefix(at + before.size());
        }
        const std::size_t token = cause.find("; last read:");
        const std::size_t expected = cause.rfind("; expected ");
        std::string text(cause.substr(0, std::min(token, expected)));
        if (expected != std::string_view::npos) text += cause.substr(expected);
        return text;
    }

private:
    std::size_t position_ = 1;
    std::string what_;
};

}  // namespace

Json ParseJson(const std::string& text, const std::string& name) {
    Json document = Json::parse(text, nullptr, false);
    if (!document.is_discarded()) return document;

    ErrorLocator locator;
    Json::sax_parse(text, &locator);
    const std::string_view before = std::string_view(text).substr(0, locator.Offset());
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t column = before.size() - (before.rfind('\n') + 1) + 1;
    throw Error(name + ": line " + std::to_string(line) + ", column " + std::to_string(column) +
                ": not JSON: " + locator.Cause());
}

}  // namespace tool
