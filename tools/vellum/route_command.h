// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_ROUTE_COMMAND_H
#define VELLUM_TOOL_ROUTE_COMMAND_H

namespace CLI {
class App;
}

namespace tool {

/// Adds the verb `route`: the way between two points of a network.
void AddRouteCommand(CLI::App& app);

}  // namespace tool

#endif
