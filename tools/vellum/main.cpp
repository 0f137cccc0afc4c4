// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <new>
#include <string>

#include "clearance_command.h"
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

int Run(int argc, char** argv) {
    CLI::App app("Vellum: two-dimensional geometry at the command line", "vellum");
    app.set_version_flag("--version", "vellum " VELLUM_TOOL_VERSION);
    app.require_subcommand(1);
    // A path may begin with a slash everywhere.
    app.allow_windows_style_options(false);
    tool::AddDrawCommand(app);
    tool::AddClearanceCommand(app);
    tool::AddInfoCommand(app);
    tool::AddJoinCommand(app);
    tool::AddRouteCommand(app);
    tool::AddFontsCommand(app);
    tool::AddSheetCommand(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        // The help or the version was asked for.
        if (end.get_exit_code() == 0) return app.exit(end);
        if (app.get_subcommands().empty()) throw tool::Error("a verb is required; vellum --help lists them");
        throw tool::Error(end.what());
    }
    return 0;
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
        return Run(argc, argv);
    } catch (const std::bad_alloc&) {
        return Fail("out of memory", kFailure);
    } catch (const tool::NotThere& answer) {
        return Fail(answer.what(), kNotThere);
    } catch (const std::exception& failure) {
        return Fail(failure.what(), kFailure);
    }
}
