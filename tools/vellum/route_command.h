// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_ROUTE_COMMAND_H
#define VELLUM_TOOL_ROUTE_COMMAND_H

namespace tool {

class CommandLine;

/// Adds the verb `route`: the way between two points of a network.
void AddRouteCommand(CommandLine& line);

}  // namespace tool

#endif
