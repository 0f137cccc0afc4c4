// SPDX-License-Identifier: MIT
#include "input_file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

#include "error.h"
#include "platform.h"

namespace tool {

namespace {

constexpr std::size_t kLargestFile = std::size_t{1} << 30;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

[[noreturn]] void Unreadable(const std::string& path, int error) {
    throw Error(path + ": cannot be read: " + std::strerror(error));
}

}  // namespace

std::string ReadFile(const std::string& path) {
    // Not everywhere can a directory be told by opening it.
    std::error_code ignored;
    if (std::filesystem::is_directory(PathOf(path), ignored)) Unreadable(path, EISDIR);
    const std::unique_ptr<std::FILE, CloseFile> file(OpenFile(PathOf(path)));
    if (!file) Unreadable(path, errno);
    std::string text;
    std::array<char, 65536> block;
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
        text.append(block.data(), count);
        if (text.size() > kLargestFile) throw Error(path + ": the file is larger than 1 GiB");
    }
    if (std::ferror(file.get())) Unreadable(path, errno);
    return text;
}

}  // namespace tool
