// SPDX-License-Identifier: MIT
#include "scratch_directory.h"

#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tool_test {

ScratchDirectory::ScratchDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "vellum-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no scratch directory");
    directory_ = std::filesystem::canonical(name);
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

std::string ScratchDirectory::Write(const std::string& name, const std::string& text) const {
    std::ofstream(Path(name), std::ios::binary) << text;
    return Path(name);
}

std::string ScratchDirectory::Read(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> ScratchDirectory::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory_)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace tool_test
