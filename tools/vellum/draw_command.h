// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_DRAW_COMMAND_H
#define VELLUM_TOOL_DRAW_COMMAND_H

namespace CLI {
class App;
}

namespace tool {

/// Adds the verb `draw`: a map or drawing becomes a picture.
void AddDrawCommand(CLI::App& app);

}  // namespace tool

#endif
