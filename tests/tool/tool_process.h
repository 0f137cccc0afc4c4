// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_TOOL_TOOL_PROCESS_H
#define VELLUM_TESTS_TOOL_TOOL_PROCESS_H

#include <sys/types.h>

#include <string>
#include <vector>

namespace tool_test {

/// Starts the tool, with its outputs thrown away.
pid_t StartTool(const std::vector<std::string>& arguments);

/// Waits for the end of a tool that was started; its status as in `Outcome`.
int WaitForTool(pid_t tool);

}  // namespace tool_test

#endif
