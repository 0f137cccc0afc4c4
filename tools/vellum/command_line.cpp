// SPDX-License-Identifier: MIT
#include "command_line.h"

#include <CLI/CLI.hpp>
#include <utility>

#include "error.h"

namespace tool {

Option& Option::Required() {
    option_->required();
    return *this;
}

Option& Option::Placeholder(const std::string& name) {
    option_->type_name(name);
    return *this;
}

Option& Option::ShowDefault() {
    option_->capture_default_str();
    return *this;
}

Option& Option::Needs(const Option& other) {
    option_->needs(other.option_);
    return *this;
}

bool Option::IsGiven() const { return option_->count() > 0; }

Option Verb::Text(const std::string& name, std::string& value, const std::string& description) {
    return Option(verb_->add_option(name, value, description));
}

void Verb::Flag(const std::string& name, bool& value, const std::string& description) {
    verb_->add_flag(name, value, description);
}

void Verb::Footer(const std::string& text) { verb_->footer(text); }

void Verb::Action(std::function<void()> action) { verb_->callback(std::move(action)); }

CommandLine::CommandLine(const std::string& description, const std::string& program, const std::string& version)
    : app_(std::make_unique<CLI::App>(description, program)) {
    app_->set_version_flag("--version", version);
    app_->require_subcommand(1);
    // A path may begin with a slash everywhere.
    app_->allow_windows_style_options(false);
}

CommandLine::~CommandLine() = default;

Verb CommandLine::AddVerb(const std::string& name, const std::string& description) {
    return Verb(app_->add_subcommand(name, description));
}

void CommandLine::Run(int argc, const char* const* argv) {
    try {
        app_->parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        if (end.get_exit_code() != 0) {
            if (app_->get_subcommands().empty()) throw Error("a verb is required; vellum --help lists them");
            throw Error(end.what());
        }
        // The help or the version was asked for.
        app_->exit(end);
    }
}

}  // namespace tool
