/* SPDX-License-Identifier: MIT */
#ifndef VELLUM_TESTS_TYPES_RECORDS_IN_C_H
#define VELLUM_TESTS_TYPES_RECORDS_IN_C_H

#include <stddef.h>

/* Sizes of the records and offsets of their last fields. */
typedef struct RecordSizes {
    size_t realPt;
    size_t intPt;
    size_t shortPt;
    size_t realRect;
    size_t realRectLr;
    size_t intRect;
    size_t intRectLr;
    size_t polySet;
    size_t polySetCodes;
    size_t devicePolySet;
    size_t devicePolySetCodes;
    size_t fontList;
    size_t fontListFile;
} RecordSizes;

#ifdef __cplusplus
extern "C" {
#endif

/* What a C compiler makes of vellum/records.h. */
void ReadRecordSizesInC(RecordSizes* out);

#ifdef __cplusplus
}
#endif

#endif
