// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform.h"

namespace tool {

namespace {

// Read by the handler, which runs in a thread of its own.
std::atomic<const wchar_t*> doomed = nullptr;

// The next handler, the system's, ends the process.
BOOL WINAPI RemoveAndEnd(DWORD) {
    if (const wchar_t* path = doomed.load()) DeleteFileW(path);
    return FALSE;
}

/// The error number for what the system says.
int ErrorNumber(DWORD error) {
    return std::error_code(static_cast<int>(error), std::system_category()).default_error_condition().value();
}

/// Has the console take UTF-8. The console is the user's, who gets the code page back when the process ends.
class Utf8Output {
public:
    Utf8Output() : codePage_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
    ~Utf8Output() {
        if (codePage_ == 0) return;
        // What is still to be written is UTF-8.
        std::fflush(nullptr);
        SetConsoleOutputCP(codePage_);
    }
    Utf8Output(const Utf8Output&) = delete;
    Utf8Output& operator=(const Utf8Output&) = delete;

private:
    UINT codePage_;
};

/// Has the console of a stream, if it has one, take control sequences. The user gets the mode back likewise.
class ControlSequences {
public:
    explicit ControlSequences(HANDLE stream)
        : stream_(stream),
          areTaken_(GetConsoleMode(stream_, &mode_) != 0 &&
                    SetConsoleMode(stream_, mode_ | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0) {}
    ~ControlSequences() {
        if (!areTaken_) return;
        std::fflush(nullptr);
        SetConsoleMode(stream_, mode_);
    }
    ControlSequences(const ControlSequences&) = delete;
    ControlSequences& operator=(const ControlSequences&) = delete;

    bool AreTaken() const { return areTaken_; }

private:
    HANDLE stream_;
    DWORD mode_ = 0;
    bool areTaken_;
};

}  // namespace

void PrepareStreams() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    static const Utf8Output utf8Output;
}

// A terminal that takes no control sequences is none to show progress on.
bool ErrorsGoToTerminal() {
    static const ControlSequences errors(GetStdHandle(STD_ERROR_HANDLE));
    return errors.AreTaken();
}

unsigned long ProcessNumber() { return GetCurrentProcessId(); }

std::filesystem::path PathOf(const std::string& name) { return std::u8string(name.begin(), name.end()); }

std::FILE* OpenFile(const std::filesystem::path& path) { return _wfopen(path.c_str(), L"rb"); }

std::FILE* OpenNewFile(const std::filesystem::path& path) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, CREATE_NEW,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        errno = ErrorNumber(GetLastError());
        return nullptr;
    }
    return _fdopen(_open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY), "wb");
}

RemoveOnInterrupt::RemoveOnInterrupt(std::filesystem::path path) : path_(std::move(path)) {
    doomed = path_.c_str();
    SetConsoleCtrlHandler(RemoveAndEnd, TRUE);
}

RemoveOnInterrupt::~RemoveOnInterrupt() {
    SetConsoleCtrlHandler(RemoveAndEnd, FALSE);
    doomed = nullptr;
}

}  // namespace tool
