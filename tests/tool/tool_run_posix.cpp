// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "scratch_directory.h"
#include "tool_process.h"
#include "tool_run.h"

namespace tool_test {

namespace {

pid_t Start(const std::vector<std::string>& arguments, const std::string& out, const std::string& err) {
    std::vector<std::string> words = {VELLUM_TOOL};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), O_WRONLY | O_CREAT, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), O_WRONLY | O_CREAT, 0600);
    pid_t tool = 0;
    const int error = posix_spawn(&tool, VELLUM_TOOL, &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::runtime_error("the tool cannot be started");
    return tool;
}

}  // namespace

Outcome RunTool(const std::vector<std::string>& arguments) {
    const ScratchDirectory streams;
    Outcome outcome;
    outcome.status = WaitForTool(Start(arguments, streams.Path("out"), streams.Path("err")));
    outcome.out = streams.Read("out");
    outcome.err = streams.Read("err");
    return outcome;
}

Outcome RunToolWithoutOutput(const std::vector<std::string>& arguments) {
    const ScratchDirectory streams;
    Outcome outcome;
    outcome.status = WaitForTool(Start(arguments, "/dev/full", streams.Path("err")));
    outcome.err = streams.Read("err");
    return outcome;
}

pid_t StartTool(const std::vector<std::string>& arguments) { return Start(arguments, "/dev/null", "/dev/null"); }

int WaitForTool(pid_t tool) {
    int status = 0;
    if (waitpid(tool, &status, 0) != tool) throw std::runtime_error("the tool cannot be waited for");
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::string Sample(const std::string& name) { return std::string(VELLUM_SAMPLES) + '/' + name; }

}  // namespace tool_test
