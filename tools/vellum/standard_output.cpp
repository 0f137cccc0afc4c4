// SPDX-License-Identifier: MIT
#include "standard_output.h"

#include <iostream>

#include "error.h"

namespace tool {

void FinishOutput() {
    if (!std::cout.flush()) throw Error("standard output: cannot be written");
}

}  // namespace tool
