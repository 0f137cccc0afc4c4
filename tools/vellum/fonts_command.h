// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_FONTS_COMMAND_H
#define VELLUM_TOOL_FONTS_COMMAND_H

namespace tool {

class CommandLine;

/// Adds the verb `fonts`: which faces are installed, or which styles one of them has.
void AddFontsCommand(CommandLine& line);

}  // namespace tool

#endif
