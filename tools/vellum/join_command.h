// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_JOIN_COMMAND_H
#define VELLUM_TOOL_JOIN_COMMAND_H

namespace CLI {
class App;
}

namespace tool {

/// Adds the verb `join`: lines become a network.
void AddJoinCommand(CLI::App& app);

}  // namespace tool

#endif
