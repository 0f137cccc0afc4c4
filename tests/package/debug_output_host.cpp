// SPDX-License-Identifier: MIT
#include <vellum/geometry.h>

#include <cstdio>

extern "C" void VellumDebugOutput(const char* text) { std::printf("received: %s", text); }

int main() { Vellum::DbgPrintf("%d x %d = %d\n", 6, 7, 6 * 7); }
