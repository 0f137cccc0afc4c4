/* SPDX-License-Identifier: MIT */
#ifndef VELLUM_RECORDS_H
#define VELLUM_RECORDS_H

/**
 * @file
 * The plain records that carry geometry across the boundary to drawing code. They are C records in the global
 * namespace and this header is C as well as C++; in C++ `namespace Vellum` names the same types.
 */

#include <stdint.h>

/** A point in double coordinates; the layout of `Vellum::DblPt`. */
typedef struct real_pt_t {
    double x;
    double y;
} real_pt_t;

/** A device point; the layout of `Vellum::IntPt`. */
typedef struct int_pt_t {
    int32_t x;
    int32_t y;
} int_pt_t;

/** A 16-bit device point. */
typedef struct short_pt_t {
    int16_t x;
    int16_t y;
} short_pt_t;

/** Four corners; of an axis-aligned box (left, bottom), (left, top), (right, top), (right, bottom). */
typedef struct real_rect_t {
    real_pt_t ll;
    real_pt_t ul;
    real_pt_t ur;
    real_pt_t lr;
} real_rect_t;

/** Four device corners, in the order of `real_rect_t`. */
typedef struct int_rect_t {
    int_pt_t ll;
    int_pt_t ul;
    int_pt_t ur;
    int_pt_t lr;
} int_rect_t;

/**
 * A poly point set: several polygons one after another in one array of points, with a code for each point.
 *
 * A code of 2 or 3 ends a polygon (2 is the closing form of code 0, 3 of code 1); any other code stands inside one.
 * Both arrays belong to the caller, who also sizes them: nothing in the library reallocates them.
 */
typedef struct DrwPSetT {
    int32_t numPts;
    real_pt_t* pts;
    uint32_t* codes;
} DrwPSetT;

/** A poly point set in device coordinates; codes and ownership as for `DrwPSetT`. */
typedef struct DrwDPSetT {
    int32_t numPts;
    int_pt_t* pts;
    uint32_t* codes;
} DrwDPSetT;

#ifdef __cplusplus
namespace Vellum {
using ::DrwDPSetT;
using ::DrwPSetT;
using ::int_pt_t;
using ::int_rect_t;
using ::real_pt_t;
using ::real_rect_t;
using ::short_pt_t;
}  // namespace Vellum
#endif

#endif
