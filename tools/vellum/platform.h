// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_PLATFORM_H
#define VELLUM_TOOL_PLATFORM_H

#include <string>

/// What the tool asks of the operating system beyond the standard library.
namespace tool {

/// Whether a person at a terminal reads standard error.
bool ErrorsGoToTerminal();

/// A number that no other running process has.
unsigned long ProcessNumber();

/// From now on, until it is destroyed, an interruption of the process removes the file first. One at a time.
class RemoveOnInterrupt {
public:
    explicit RemoveOnInterrupt(std::string path);
    ~RemoveOnInterrupt();
    RemoveOnInterrupt(const RemoveOnInterrupt&) = delete;
    RemoveOnInterrupt& operator=(const RemoveOnInterrupt&) = delete;

private:
    std::string path_;
};

}  // namespace tool

#endif
