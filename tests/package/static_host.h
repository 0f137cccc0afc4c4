// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_PACKAGE_STATIC_HOST_H
#define VELLUM_TESTS_PACKAGE_STATIC_HOST_H

// Every host of the static library is compiled with this ahead of it.
#if !defined(VELLUM_STATIC)
#error "The package of the static library must define VELLUM_STATIC for its hosts."
#endif

#endif
