// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_TOOL_SCRATCH_DIRECTORY_H
#define VELLUM_TESTS_TOOL_SCRATCH_DIRECTORY_H

#include <filesystem>
#include <string>
#include <vector>

namespace tool_test {

/// A new empty directory, removed with all that is in it.
class ScratchDirectory {
public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    /// The path of a file in it. Names are in UTF-8.
    std::string Path(const std::string& name) const;

    /// Writes a file and gives its path.
    std::string Write(const std::string& name, const std::string& text) const;

    std::string Read(const std::string& name) const;

    /// The names of all that is in it, in order.
    std::vector<std::string> Names() const;

private:
    std::filesystem::path FileOf(const std::string& name) const;

    std::filesystem::path directory_;
};

}  // namespace tool_test

#endif
