// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_ERROR_H
#define VELLUM_TOOL_ERROR_H

#include <stdexcept>

namespace tool {

/// A failure that the user is told about, in words that stand on their own.
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace tool

#endif
