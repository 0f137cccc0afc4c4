// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_JSON_DOCUMENT_H
#define VELLUM_TOOL_JSON_DOCUMENT_H

#include <nlohmann/json.hpp>
#include <string>

namespace tool {

/// Parses a JSON text. Throws `Error` with @p name, the line, the column and the cause.
nlohmann::json ParseJson(const std::string& text, const std::string& name);

}  // namespace tool

#endif
