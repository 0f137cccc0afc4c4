// SPDX-License-Identifier: MIT
#ifndef VELLUM_STATUS_H
#define VELLUM_STATUS_H

/// @file
/// `Status`, a result code with a fixed English text. The library's own operations return `bool`; `Status` is offered
/// to hosts that must tell failures apart.

#include <cstdint>

#include "vellum/export.h"

namespace Vellum {

/// One 32-bit result code; the values follow the HRESULT convention (high bit set means failure).
class VELLUM_API Status {
public:
    enum StCode : uint32_t {
        StSuccess = 0x00000000,
        StNoOp = 0x00000001,
        StNotAble = 0x8000000A,
        StNotImplemented = 0x80004001,
        StAborted = 0x80004004,
        StFailed = 0x80004005,
        StCatastrophic = 0x8000FFFF,
        StOutOfMemory = 0x8007000E,
        StInvalidArg = 0x80070057
    };

    StCode code;

    VELLUM_INLINE Status() : code(StSuccess) {}
    VELLUM_INLINE Status(StCode c) : code(c) {}
    Status(const Status&) = default;
    Status& operator=(const Status&) = default;
    VELLUM_INLINE Status& operator=(StCode c) {
        code = c;
        return *this;
    }
    ~Status() = default;

    VELLUM_INLINE Status& operator()(StCode c) { return *this = c; }
    VELLUM_INLINE void Set(StCode c) { code = c; }

    VELLUM_INLINE bool operator==(Status& s) { return code == s.code; }
    VELLUM_INLINE bool operator==(const Status& s) const { return code == s.code; }
    VELLUM_INLINE bool operator==(StCode c) const { return code == c; }
    VELLUM_INLINE bool operator!=(Status& s) { return code != s.code; }
    VELLUM_INLINE bool operator!=(const Status& s) const { return code != s.code; }
    VELLUM_INLINE bool operator!=(StCode c) const { return code != c; }

    VELLUM_INLINE StCode Code() const { return code; }
    /// True for every code without the high bit, so `StNoOp` is a success too.
    VELLUM_INLINE bool Succeeded() const { return static_cast<int32_t>(code) >= 0; }
    VELLUM_INLINE bool Failed() const { return !Succeeded(); }

    /// The text of the code: static, never to be freed. A code from 2 to 15 gives
    /// "Status code returned is not defined"; any other code without a text of its own gives a null pointer. Hosts tell
    /// the two apart, so whoever prints the text must test it for null.
    char* Text() const;
};

}  // namespace Vellum

#endif
