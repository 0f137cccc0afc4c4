// SPDX-License-Identifier: MIT

// What a debugger receives of a process, and that all is well without one.

#define WIN32_LEAN_AND_MEAN
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "support/import_patch_win32.h"
#include "vellum/geometry.h"

namespace {

struct ProgramRun {
    DWORD exitStatus = 1;
    std::vector<std::string> texts;
};

std::string TextOf(HANDLE process, const OUTPUT_DEBUG_STRING_INFO& info) {
    std::string text(info.nDebugStringLength, '\0');
    SIZE_T length = 0;
    ReadProcessMemory(process, info.lpDebugStringData, text.data(), text.size(), &length);
    return text.substr(0, text.find('\0'));
}

ProgramRun RunProgram(bool debugged) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION program = {};
    ProgramRun run;
    if (!CreateProcessA(DEBUGGED_PROGRAM, nullptr, nullptr, nullptr, FALSE, debugged ? DEBUG_ONLY_THIS_PROCESS : 0,
                        nullptr, nullptr, &startup, &program))
        return run;
    for (bool running = debugged; running;) {
        DEBUG_EVENT event = {};
        if (!WaitForDebugEvent(&event, 60000)) break;
        DWORD answer = DBG_CONTINUE;
        if (event.dwDebugEventCode == OUTPUT_DEBUG_STRING_EVENT) {
            run.texts.push_back(TextOf(program.hProcess, event.u.DebugString));
        } else if (event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT &&
                   event.u.Exception.ExceptionRecord.ExceptionCode != EXCEPTION_BREAKPOINT) {
            answer = DBG_EXCEPTION_NOT_HANDLED;
        }
        running = event.dwDebugEventCode != EXIT_PROCESS_DEBUG_EVENT;
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId, answer);
    }
    WaitForSingleObject(program.hProcess, 60000);
    GetExitCodeProcess(program.hProcess, &run.exitStatus);
    CloseHandle(program.hThread);
    CloseHandle(program.hProcess);
    return run;
}

TEST(DebugOutput, GoesToTheDebugger) {
    const ProgramRun run = RunProgram(true);
    EXPECT_EQ(run.exitStatus, 0U);
    EXPECT_EQ(run.texts, (std::vector<std::string>{"first 1\n", "second % done\n"}));
}

TEST(DebugOutput, IsHarmlessWithoutADebugger) { EXPECT_EQ(RunProgram(false).exitStatus, 0U); }

std::vector<UINT> beeps;

BOOL WINAPI RecordBeep(UINT type) {
    beeps.push_back(type);
    return TRUE;
}

TEST(DbgBeep, SoundsTheExclamation) {
    beeps.clear();
    const support::ImportPatch patch("MessageBeep", RecordBeep);
    Vellum::DbgBeep();
    EXPECT_EQ(beeps, std::vector<UINT>({0x30}));
}

}  // namespace
