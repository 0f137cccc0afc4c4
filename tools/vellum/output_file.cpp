// SPDX-License-Identifier: MIT
#include "output_file.h"

#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

#include "error.h"

namespace tool {

namespace {

namespace fs = std::filesystem;

/// Where the file really lies: a link is written through, not replaced.
fs::path Resolved(const std::string& path) {
    std::error_code error;
    const fs::path named = PathOf(path);
    const fs::path resolved = fs::weakly_canonical(named, error);
    return error ? named : resolved;
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
    : path_(path), target_(Resolved(path)), temporary_(TemporaryBeside(target_)), removal_(temporary_) {
    std::error_code error;
    if (fs::is_directory(target_, error)) Fail(EISDIR);
    file_ = OpenNewFile(temporary_);
    if (!file_) Fail(errno);
}

OutputFile::~OutputFile() {
    if (committed_) return;
    if (file_) std::fclose(file_);
    std::error_code error;
    fs::remove(temporary_, error);
}

bool OutputFile::Write(const void* bytes, std::size_t count) {
    if (error_ == 0 && std::fwrite(bytes, 1, count, file_) != count) error_ = errno;
    return error_ == 0;
}

void OutputFile::Commit() {
    // Windows renames no open file.
    if (std::fclose(std::exchange(file_, nullptr)) != 0 && error_ == 0) error_ = errno;
    if (error_ != 0) Fail(error_);
    std::error_code error;
    fs::rename(temporary_, target_, error);
    if (error) Fail(error.default_error_condition().value());
    committed_ = true;
}

void OutputFile::Fail(int error) const { throw Error(path_ + ": cannot be written: " + std::strerror(error)); }

}  // namespace tool
