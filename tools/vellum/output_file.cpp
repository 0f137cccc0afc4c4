// SPDX-License-Identifier: MIT
#include "output_file.h"

#include <cerrno>
#include <cstring>
#include <system_error>

#include "error.h"

namespace tool {

namespace {

namespace fs = std::filesystem;

/// Where the file really lies: a link is written through, not replaced.
fs::path Resolved(const std::string& path) {
    std::error_code error;
    const fs::path resolved = fs::weakly_canonical(path, error);
    return error ? fs::path(path) : resolved;
}

/// A short name: one made from the target's could be longer than the file system takes.
fs::path TemporaryBeside(const fs::path& target) {
    std::string name = ".vellum-";
    name += std::to_string(ProcessNumber());
    name += ".part";
    return target.parent_path() / name;
}

}  // namespace

OutputFile::OutputFile(const std::string& path)
    : path_(path), target_(Resolved(path)), temporary_(TemporaryBeside(target_)), removal_(temporary_.string()) {
    std::error_code error;
    if (fs::is_directory(target_, error)) Fail(EISDIR);
    file_ = std::fopen(temporary_.string().c_str(), "wbx");
    if (!file_) Fail(errno);
}

OutputFile::~OutputFile() {
    if (!file_) return;
    std::fclose(file_);
    std::error_code error;
    fs::remove(temporary_, error);
}

bool OutputFile::Write(const void* bytes, std::size_t count) {
    if (error_ == 0 && std::fwrite(bytes, 1, count, file_) != count) error_ = errno;
    return error_ == 0;
}

void OutputFile::Commit() {
    if (error_ == 0 && std::fflush(file_) != 0) error_ = errno;
    if (error_ != 0) Fail(error_);
    std::error_code error;
    fs::rename(temporary_, target_, error);
    if (error) Fail(error.value());
    std::fclose(file_);
    file_ = nullptr;
}

void OutputFile::Fail(int error) const { throw Error(path_ + ": cannot be written: " + std::strerror(error)); }

}  // namespace tool
