// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_INFO_COMMAND_H
#define VELLUM_TOOL_INFO_COMMAND_H

namespace CLI {
class App;
}

namespace tool {

/// Adds the verb `info`: what a map holds, feature by feature.
void AddInfoCommand(CLI::App& app);

}  // namespace tool

#endif
