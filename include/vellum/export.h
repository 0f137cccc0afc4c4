// SPDX-License-Identifier: MIT
#ifndef VELLUM_EXPORT_H
#define VELLUM_EXPORT_H

/// @file
/// What marks a name as part of the library's binary interface. Everything that is not marked stays hidden.

#if defined(VELLUM_STATIC)
#define VELLUM_API
#elif defined(_WIN32) && defined(VELLUM_BUILDING)
// The linker is told the names.
#define VELLUM_API
#elif defined(_WIN32)
#define VELLUM_API __declspec(dllimport)
#else
#define VELLUM_API __attribute__((visibility("default")))
#endif

/// Marks an inline member. Callers' compilers see through it; the library itself also keeps one copy of each, so that a
/// host which binds to exported names finds these too, whatever the library's own compiler chose to inline. Special
/// members that are trivial stay "= default": a compiler copies their bytes and calls nothing, so there is no name to
/// bind to.
#if defined(VELLUM_EMIT_INLINE_MEMBERS)
#define VELLUM_INLINE [[gnu::used]] inline
#else
#define VELLUM_INLINE inline
#endif

#endif
