// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_COMMAND_LINE_H
#define VELLUM_TOOL_COMMAND_LINE_H

#include <functional>
#include <memory>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

/// The verbs of the command line and their options. Only these classes know the parser, whose header takes longer to
/// compile than all the rest of a command.
namespace tool {

/// An option or an operand of a verb. What describes it can be chained.
class Option {
public:
    explicit Option(CLI::Option* option) : option_(option) {}

    Option& Required();
    /// What the help calls its value.
    Option& Placeholder(const std::string& name);
    /// The help shows the value that it has now.
    Option& ShowDefault();
    Option& Needs(const Option& other);

    /// Whether the command line holds it.
    bool IsGiven() const;

private:
    CLI::Option* option_;
};

class Verb {
public:
    explicit Verb(CLI::App* verb) : verb_(verb) {}

    /// @p value must outlive the parsing. An operand's name does not begin with a hyphen.
    Option Text(const std::string& name, std::string& value, const std::string& description);
    void Flag(const std::string& name, bool& value, const std::string& description);
    /// Stands under the options in the help.
    void Footer(const std::string& text);
    /// What the verb does once the command line is read.
    void Action(std::function<void()> action);

private:
    CLI::App* verb_;
};

class CommandLine {
public:
    CommandLine(const std::string& description, const std::string& program, const std::string& version);
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;
    ~CommandLine();

    Verb AddVerb(const std::string& name, const std::string& description);

    /// Does what the command line asks for, or prints the help or the version. Throws `Error` where it is not
    /// understood, and what the verb's action throws.
    void Run(int argc, const char* const* argv);

private:
    std::unique_ptr<CLI::App> app_;
};

}  // namespace tool

#endif
