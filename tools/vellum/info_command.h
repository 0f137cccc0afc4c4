// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_INFO_COMMAND_H
#define VELLUM_TOOL_INFO_COMMAND_H

namespace tool {

class CommandLine;

/// Adds the verb `info`: what a map holds, feature by feature.
void AddInfoCommand(CommandLine& line);

}  // namespace tool

#endif
