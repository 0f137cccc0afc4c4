// SPDX-License-Identifier: MIT
#include "vellum/geometry.h"

int main() {
    Vellum::DbgPrintf("first %d\n", 1);
    Vellum::DbgPrintf("%s", "second % done\n");
}
