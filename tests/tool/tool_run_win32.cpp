// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <stdexcept>

#include "scratch_directory.h"
#include "tool_run.h"

namespace tool_test {

namespace {

/// A word of a command line, as the C runtime takes it apart: backslashes count as such but before a quote.
std::string Quoted(const std::string& word) {
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char c : word) {
        if (c == '"') quoted.append(backslashes + 1, '\\');
        backslashes = c == '\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    return quoted.append(backslashes, '\\') + '"';
}

/// The words are in UTF-8.
std::wstring CommandLine(const std::vector<std::string>& arguments) {
    std::string line = Quoted(VELLUM_TOOL);
    for (const std::string& argument : arguments) {
        line += ' ' + Quoted(argument);
    }
    std::wstring wide(line.size() + 1, L'\0');
    MultiByteToWideChar(CP_UTF8, 0, line.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

/// A file that a child process may use as a stream.
class Stream {
public:
    Stream(const std::string& path, DWORD access) {
        SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
        handle_ = CreateFileA(path.c_str(), access, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                              nullptr);
        if (handle_ == INVALID_HANDLE_VALUE) throw std::runtime_error(path + " cannot be made");
    }
    ~Stream() { CloseHandle(handle_); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    HANDLE Handle() const { return handle_; }

private:
    HANDLE handle_;
};

int Run(const std::vector<std::string>& arguments, const Stream& out, const Stream& err) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = out.Handle();
    startup.hStdError = err.Handle();
    PROCESS_INFORMATION tool = {};
    std::wstring line = CommandLine(arguments);
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &tool))
        throw std::runtime_error("the tool cannot be started");
    WaitForSingleObject(tool.hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(tool.hProcess, &status);
    CloseHandle(tool.hThread);
    CloseHandle(tool.hProcess);
    return static_cast<int>(status);
}

Outcome RunWithOutput(const std::vector<std::string>& arguments, DWORD accessToOutput) {
    const ScratchDirectory streams;
    Outcome outcome;
    {
        const Stream out(streams.Path("out"), accessToOutput);
        const Stream err(streams.Path("err"), GENERIC_WRITE);
        outcome.status = Run(arguments, out, err);
    }
    outcome.out = streams.Read("out");
    outcome.err = streams.Read("err");
    return outcome;
}

}  // namespace

Outcome RunTool(const std::vector<std::string>& arguments) { return RunWithOutput(arguments, GENERIC_WRITE); }

Outcome RunToolWithoutOutput(const std::vector<std::string>& arguments) {
    return RunWithOutput(arguments, GENERIC_READ);
}

std::string Sample(const std::string& name) { return std::string(VELLUM_SAMPLES) + '/' + name; }

}  // namespace tool_test
