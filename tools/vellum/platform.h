// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_PLATFORM_H
#define VELLUM_TOOL_PLATFORM_H

#include <cstdio>
#include <filesystem>
#include <string>

/// What the tool asks of the operating system beyond the standard library.
namespace tool {

/// Makes what is printed arrive as it is: UTF-8, with lines that end as they were written.
void PrepareStreams();

/// Whether a person at a terminal reads standard error.
bool ErrorsGoToTerminal();

/// A number that no other running process has.
unsigned long ProcessNumber();

/// The file that an argument or a message names. On Windows both are in UTF-8, whatever the user's code page.
std::filesystem::path PathOf(const std::string& name);

/// A file for reading. Null, and an error number, where it cannot be opened.
std::FILE* OpenFile(const std::filesystem::path& path);

/// A new file for writing, which may be removed while it is open. Null, and an error number, where there can be none.
std::FILE* OpenNewFile(const std::filesystem::path& path);

/// From now on, until it is destroyed, an interruption of the process removes the file first. One at a time.
class RemoveOnInterrupt {
public:
    explicit RemoveOnInterrupt(std::filesystem::path path);
    ~RemoveOnInterrupt();
    RemoveOnInterrupt(const RemoveOnInterrupt&) = delete;
    RemoveOnInterrupt& operator=(const RemoveOnInterrupt&) = delete;

private:
    std::filesystem::path path_;
};

}  // namespace tool

#endif
