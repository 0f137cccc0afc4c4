/* SPDX-License-Identifier: MIT */
#include "vellum/records.h"

#include "types/records_in_c.h"

void ReadRecordSizesInC(RecordSizes* out) {
    out->realPt = sizeof(real_pt_t);
    out->intPt = sizeof(int_pt_t);
    out->shortPt = sizeof(short_pt_t);
    out->realRect = sizeof(real_rect_t);
    out->realRectLr = offsetof(real_rect_t, lr);
    out->intRect = sizeof(int_rect_t);
    out->intRectLr = offsetof(int_rect_t, lr);
    out->polySet = sizeof(DrwPSetT);
    out->polySetCodes = offsetof(DrwPSetT, codes);
    out->devicePolySet = sizeof(DrwDPSetT);
    out->devicePolySetCodes = offsetof(DrwDPSetT, codes);
    out->fontList = sizeof(fnt_lst_t);
    out->fontListFile = offsetof(fnt_lst_t, file_name);
}
