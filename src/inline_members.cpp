// SPDX-License-Identifier: MIT

// The library's own copy of every inline member, for hosts that bind to exported names.
#define VELLUM_EMIT_INLINE_MEMBERS
#include "vellum/vellum.h"
