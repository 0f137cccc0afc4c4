// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_OUTPUT_FILE_H
#define VELLUM_TOOL_OUTPUT_FILE_H

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <string>

#include "platform.h"

namespace tool {

/// A file that appears whole or not at all: it is written under another name beside its place and takes its own name
/// when it is committed. Without that nothing is left of it, also when the process is interrupted.
class OutputFile {
public:
    /// Throws `Error` where no file can be written there.
    explicit OutputFile(const std::string& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// False where it fails; the file remembers it, and to commit it will fail.
    bool Write(const void* bytes, std::size_t count);

    /// Throws `Error` where anything of the file could not be written.
    void Commit();

private:
    [[noreturn]] void Fail(int error) const;

    std::string path_;
    std::filesystem::path target_;
    std::filesystem::path temporary_;
    RemoveOnInterrupt removal_;
    std::FILE* file_ = nullptr;
    int error_ = 0;
    bool committed_ = false;
};

}  // namespace tool

#endif
