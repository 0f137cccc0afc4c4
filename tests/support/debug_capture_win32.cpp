// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "support/debug_capture.h"

namespace {

// A debug text is raised as an exception for the debugger: the length and the address of the text. Who sees it first
// and says that all is well ends it there.
LONG CALLBACK TakeText(EXCEPTION_POINTERS* raised) {
    const EXCEPTION_RECORD& record = *raised->ExceptionRecord;
    if (record.ExceptionCode != DBG_PRINTEXCEPTION_C) return EXCEPTION_CONTINUE_SEARCH;
    support::AddDebugText(reinterpret_cast<const char*>(record.ExceptionInformation[1]));
    return EXCEPTION_CONTINUE_EXECUTION;
}

class Capture {
public:
    Capture() : handler(AddVectoredExceptionHandler(1, TakeText)) {}
    ~Capture() { RemoveVectoredExceptionHandler(handler); }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

private:
    void* handler;
};

const Capture capture;

}  // namespace
