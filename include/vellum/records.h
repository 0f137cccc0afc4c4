/* SPDX-License-Identifier: MIT */
#ifndef VELLUM_RECORDS_H
#define VELLUM_RECORDS_H

/**
 * @file
 * The plain records that carry geometry and font names across the boundary to a host. They are C records in the global
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

/**
 * An arc of the conic A x^2 + B xy + C y^2 + D x + E y + F = 0, in coordinates relative to its centre, as
 * `Vellum::EllipticalArcGeom` computes with it.
 */
typedef struct drw_con_arc_t {
    double A;
    double B;
    double C;
    double D;
    double E;
    double F;
    real_pt_t start;  /**< the first end, on the conic */
    real_pt_t end;    /**< the second end, on the conic */
    int64_t reversed; /**< not 0: the arc runs from `end` to `start` */
} drw_con_arc_t;

/** An ellipse by conjugate diameters, as a drawing element gives it, and the semi-axes computed from it. */
typedef struct circle_ellipse_s {
    real_pt_t center;
    real_pt_t conjugate1; /**< the end of the first conjugate semi-diameter, an absolute point */
    real_pt_t conjugate2; /**< the end of the second one, an absolute point */
    real_pt_t start;      /**< on the ray from the centre through the arc's first end */
    real_pt_t end;        /**< on the ray from the centre through the arc's second end */
    double semiAxis1;     /**< written where it can be computed: the smaller semi-axis */
    double semiAxis2;     /**< written where it can be computed: the larger semi-axis */
} circle_ellipse_s;

/** A conic arc in exchange form: the coefficients as in `drw_con_arc_t`, the height of its plane, its ends. */
typedef struct CONIC_ARC {
    double A;
    double B;
    double C;
    double D;
    double E;
    double F;
    double ZT; /**< the height, always 0 here */
    double X1;
    double Y1;
    double X2;
    double Y2;
} CONIC_ARC;

/**
 * A conic arc to measure: the coefficients as in `drw_con_arc_t`, the ends, and whether it is the whole conic. The
 * arc runs counter-clockwise from `start` to `end`; where both are the same point it is that point.
 */
typedef struct con_arc_str {
    double A;
    double B;
    double C;
    double D;
    double E;
    double F;
    real_pt_t start;
    real_pt_t end;
    int32_t closed; /**< 1 for the full conic, whatever the ends; 0 for an arc */
} con_arc_str;

/** An elliptical arc in standard position. The point at angle t is the centre and (a cos t, b sin t), turned. */
typedef struct std_ell_typ {
    double cosine;     /**< of the rotation */
    double sine;       /**< of the rotation */
    real_pt_t center;  /**< in the turned frame */
    double startAngle; /**< radians */
    double sweepAngle; /**< radians, counter-clockwise */
    double a;          /**< the semi-axis along the turned x, not always the longer one */
    double b;          /**< the semi-axis along the turned y */
} std_ell_typ;

/**
 * An entry of a list of `Vellum::Fonts`. A list is an array of them that ends with an entry whose `face_name` is null;
 * array and strings belong to the caller, who releases them all by `Vellum::Fonts::DeleteFontFaceList`.
 */
typedef struct fnt_lst_t {
    char* face_name; /**< the name of a face, or in a list of styles of a style */
    char* uni_name;  /**< the localized name of the face, UTF-16 little-endian and two zero bytes, or null */
    char* file_name; /**< the full path of the font file, or null */
} fnt_lst_t;

#ifdef __cplusplus
namespace Vellum {
using ::circle_ellipse_s;
using ::con_arc_str;
using ::CONIC_ARC;
using ::drw_con_arc_t;
using ::DrwDPSetT;
using ::DrwPSetT;
using ::fnt_lst_t;
using ::int_pt_t;
using ::int_rect_t;
using ::real_pt_t;
using ::real_rect_t;
using ::short_pt_t;
using ::std_ell_typ;
}  // namespace Vellum
#endif

#endif
