// SPDX-License-Identifier: MIT
#include "scratch_directory.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace tool_test {

namespace {

std::string Utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace

ScratchDirectory::ScratchDirectory() {
    const std::filesystem::path parent = std::filesystem::canonical(std::filesystem::temp_directory_path());
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        directory_ = parent / ("vellum-test-" + std::to_string(random()));
        if (std::filesystem::create_directory(directory_)) return;
    }
    throw std::runtime_error("no scratch directory");
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

std::filesystem::path ScratchDirectory::FileOf(const std::string& name) const {
    return directory_ / std::u8string(name.begin(), name.end());
}

std::string ScratchDirectory::Path(const std::string& name) const { return Utf8(FileOf(name)); }

std::string ScratchDirectory::Write(const std::string& name, const std::string& text) const {
    std::ofstream(FileOf(name), std::ios::binary) << text;
    return Path(name);
}

std::string ScratchDirectory::Read(const std::string& name) const {
    std::ifstream file(FileOf(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> ScratchDirectory::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory_)) {
        names.push_back(Utf8(entry.path().filename()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace tool_test
