// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_SHEET_COMMAND_H
#define VELLUM_TOOL_SHEET_COMMAND_H

namespace tool {

class CommandLine;

/// Adds the verb `sheet`: a picture of every shape of the library.
void AddSheetCommand(CommandLine& line);

}  // namespace tool

#endif
