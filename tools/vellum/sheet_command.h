// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_SHEET_COMMAND_H
#define VELLUM_TOOL_SHEET_COMMAND_H

namespace CLI {
class App;
}

namespace tool {

/// Adds the verb `sheet`: a picture of every shape of the library.
void AddSheetCommand(CLI::App& app);

}  // namespace tool

#endif
