// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_JOIN_COMMAND_H
#define VELLUM_TOOL_JOIN_COMMAND_H

namespace tool {

class CommandLine;

/// Adds the verb `join`: lines become a network.
void AddJoinCommand(CommandLine& line);

}  // namespace tool

#endif
