// SPDX-License-Identifier: MIT
#include <cstdio>
#include <exception>
#include <new>
#include <string>

#include "clearance_command.h"
#include "command_line.h"
#include "draw_command.h"
#include "error.h"
#include "fonts_command.h"
#include "info_command.h"
#include "join_command.h"
#include "platform.h"
#include "route_command.h"
#include "sheet_command.h"
#include "text.h"

namespace {

constexpr int kNotThere = 1;
constexpr int kFailure = 2;

void Run(int argc, char** argv) {
    tool::CommandLine line("Vellum: two-dimensional geometry at the command line", "vellum",
                           "vellum " VELLUM_TOOL_VERSION);
    tool::AddDrawCommand(line);
    tool::AddClearanceCommand(line);
    tool::AddInfoCommand(line);
    tool::AddJoinCommand(line);
    tool::AddRouteCommand(line);
    tool::AddFontsCommand(line);
    tool::AddSheetCommand(line);
    line.Run(argc, argv);
}

/// One line, whatever stands in file names and in quoted text.
int Fail(const std::string& message, int status) {
    std::fprintf(stderr, "vellum: %s\n", tool::OneLine(message).c_str());
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    tool::PrepareStreams();
    try {
        Run(argc, argv);
        return 0;
    } catch (const std::bad_alloc&) {
        return Fail("out of memory", kFailure);
    } catch (const tool::NotThere& answer) {
        return Fail(answer.what(), kNotThere);
    } catch (const std::exception& failure) {
        return Fail(failure.what(), kFailure);
    }
}
