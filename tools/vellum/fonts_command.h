// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_FONTS_COMMAND_H
#define VELLUM_TOOL_FONTS_COMMAND_H

namespace CLI {
class App;
}

namespace tool {

/// Adds the verb `fonts`: which faces are installed, or which styles one of them has.
void AddFontsCommand(CLI::App& app);

}  // namespace tool

#endif
