// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_DRAW_COMMAND_H
#define VELLUM_TOOL_DRAW_COMMAND_H

namespace tool {

class CommandLine;

/// Adds the verb `draw`: a map or drawing becomes a picture.
void AddDrawCommand(CommandLine& line);

}  // namespace tool

#endif
