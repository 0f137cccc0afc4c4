// SPDX-License-Identifier: MIT
#ifndef VELLUM_VELLUM_H
#define VELLUM_VELLUM_H

/// @file
/// The whole of Vellum.

#include "vellum/circles.h"
#include "vellum/clearance.h"
#include "vellum/clipping.h"
#include "vellum/connector.h"
#include "vellum/containers.h"
#include "vellum/ellipses.h"
#include "vellum/entity_id.h"
#include "vellum/font_list.h"
#include "vellum/fonts.h"
#include "vellum/geometry.h"
#include "vellum/matrix.h"
#include "vellum/matrix_stack.h"
#include "vellum/pick_regions.h"
#include "vellum/points.h"
#include "vellum/polylines.h"
#include "vellum/records.h"
#include "vellum/rectangles.h"
#include "vellum/restricted_text.h"
#include "vellum/segment.h"
#include "vellum/shape.h"
#include "vellum/shortest_paths.h"
#include "vellum/status.h"
#include "vellum/ucs2_string.h"

#endif
