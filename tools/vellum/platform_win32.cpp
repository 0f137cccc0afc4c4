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

}  // namespace

void PrepareStreams() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

// A terminal that takes no control sequences is none to show progress on.
bool ErrorsGoToTerminal() {
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(errors, &mode) != 0 && SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

unsigned long ProcessNumber() { return GetCurrentProcessId(); }

std::filesystem::path PathOf(const std::string& name) { return std::u8string(name.begin(), name.end()); }

std::FILE* OpenFile(const std::filesystem::path& path) { return _wfopen(path.c_str(), L"rb"); }

std::FILE* OpenNewFile(const std::filesystem::path& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
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
