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

/// What was asked for is not there, though nothing is wrong with the question.
class NotThere : public Error {
public:
    using Error::Error;
};

}  // namespace tool

#endif
