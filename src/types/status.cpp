// SPDX-License-Identifier: MIT
#include "vellum/status.h"

#include <cstddef>
#include <iterator>

namespace Vellum {

namespace {

// Two tables in one order: the position of a code is the position of its text.
constexpr Status::StCode kCodes[] = {Status::StSuccess,        Status::StNoOp,        Status::StNotAble,
                                     Status::StNotImplemented, Status::StAborted,     Status::StFailed,
                                     Status::StCatastrophic,   Status::StOutOfMemory, Status::StInvalidArg};

// Writable, as hosts know it; without the attribute a compiler sees that nothing here writes to it and makes it
// read-only.
[[gnu::used]] const char* codeTexts[] = {
    "Operation Successful.",
    "NOOP.  No state changed.",
    "Not able to complete operation.",
    "Operation not implemented.",
    "Operation aborted.",
    "Unspecified error in the operation.",
    "Undefined catastrphic failure during the operation.",
    "Not enough memory to complete the operation.",
    "One or more invalid arguments passed to the operation.",
};

// Codes up to here are kept for results still to be named, so they get a text although they have no meaning yet.
constexpr uint32_t kLastReserved = 15;

const char* TextOf(Status::StCode code) {
    for (size_t i = 0; i < std::size(kCodes); ++i) {
        if (kCodes[i] == code) return codeTexts[i];
    }
    return code <= kLastReserved ? "Status code returned is not defined" : nullptr;
}

}  // namespace

// Hosts have always received a pointer to plain char, and none writes through it.
char* Status::Text() const { return const_cast<char*>(TextOf(code)); }

}  // namespace Vellum
