// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_TOOL_TOOL_RUN_H
#define VELLUM_TESTS_TOOL_TOOL_RUN_H

#include <string>
#include <vector>

namespace tool_test {

struct Outcome {
    int status = -1;  ///< the exit status; 128 and the signal's number where a signal ended the tool
    std::string out;
    std::string err;
};

/// Runs the tool to its end.
Outcome RunTool(const std::vector<std::string>& arguments);

/// The same with a standard output that takes nothing, as a full disk does.
Outcome RunToolWithoutOutput(const std::vector<std::string>& arguments);

/// The path of a sample map.
std::string Sample(const std::string& name);

}  // namespace tool_test

#endif
