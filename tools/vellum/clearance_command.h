// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_CLEARANCE_COMMAND_H
#define VELLUM_TOOL_CLEARANCE_COMMAND_H

namespace tool {

class CommandLine;

/// Adds the verb `clearance`: where two features of a map come closest to one another.
void AddClearanceCommand(CommandLine& line);

}  // namespace tool

#endif
