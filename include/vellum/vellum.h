// SPDX-License-Identifier: MIT
#ifndef VELLUM_VELLUM_H
#define VELLUM_VELLUM_H

/// @file
/// The whole of Vellum.

#include "vellum/clipping.h"
#include "vellum/geometry.h"
#include "vellum/matrix.h"
#include "vellum/points.h"
#include "vellum/records.h"
#include "vellum/rectangles.h"
#include "vellum/shape.h"
#include "vellum/status.h"

#endif
