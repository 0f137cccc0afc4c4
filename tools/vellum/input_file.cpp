// SPDX-License-Identifier: MIT
#include "input_file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "error.h"

namespace tool {

namespace {

constexpr std::size_t kLargestFile = std::size_t{1} << 30;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

[[noreturn]] void Unreadable(const std::string& path) {
    throw Error(path + ": cannot be read: " + std::strerror(errno));
}

}  // namespace

std::string ReadFile(const std::string& path) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    if (!file) Unreadable(path);
    std::string text;
    std::array<char, 65536> block;
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
        text.append(block.data(), count);
        if (text.size() > kLargestFile) throw Error(path + ": the file is larger than 1 GiB");
    }
    if (std::ferror(file.get())) Unreadable(path);
    return text;
}

}  // namespace tool
