// SPDX-License-Identifier: MIT
#include "golden/forced_kernels.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "paths/clip_kernels.h"
#include "shapes/clearance_kernels.h"
#include "shapes/winding_kernels.h"
#include "xfm/point_kernels.h"

using Vellum::DblPt;
using Vellum::Mtx2D;
using Vellum::internal::ClassKernels;
using Vellum::internal::ClearanceKernels;
using Vellum::internal::ClipKernels;
using Vellum::internal::InstructionSet;
using Vellum::internal::PointKernels;
using Vellum::internal::WindingKernel;

namespace {

struct Kernels {
    InstructionSet set;
    const PointKernels* point;
    const ClipKernels* clip;
    const ClearanceKernels* clearance;
    WindingKernel winding;
    WindingKernel windingOfFew;
};

constexpr Kernels kBuilt[] = {
    {InstructionSet::Plain, &Vellum::internal::kPlainPointKernels, &Vellum::internal::kClipKernelsPlain,
     &Vellum::internal::kClearanceKernelsPlain, Vellum::internal::WindingPlain, Vellum::internal::WindingOfFewPlain},
#if defined(__x86_64__)
    {InstructionSet::Sse2, &Vellum::internal::kSse2PointKernels, &Vellum::internal::kClipKernelsSse2,
     &Vellum::internal::kClearanceKernelsSse2, Vellum::internal::WindingSse2, Vellum::internal::WindingOfFewSse2},
    {InstructionSet::Avx2, &Vellum::internal::kAvx2PointKernels, &Vellum::internal::kClipKernelsAvx2,
     &Vellum::internal::kClearanceKernelsAvx2, Vellum::internal::WindingAvx2, Vellum::internal::WindingOfFewSse2},
    {InstructionSet::Avx512, &Vellum::internal::kAvx512PointKernels, &Vellum::internal::kClipKernelsAvx512,
     &Vellum::internal::kClearanceKernelsAvx512, Vellum::internal::WindingAvx512, Vellum::internal::WindingOfFewSse2},
#endif
};

const Kernels* forced = nullptr;

enum Group { Points, Clip, Clearance, Winding };
constexpr const char* kGroupNames[] = {"points", "clipping", "clearance", "winding"};
bool isAskedFor[std::size(kGroupNames)] = {};

}  // namespace

namespace golden {

bool ForceKernels(InstructionSet set) {
    for (const Kernels& kernels : kBuilt)
        if (kernels.set == set) forced = &kernels;
    return forced != nullptr;
}

std::vector<std::string> KernelsNotAskedFor() {
    std::vector<std::string> names;
    for (size_t i = 0; i < std::size(kGroupNames); ++i)
        if (!isAskedFor[i]) names.emplace_back(kGroupNames[i]);
    return names;
}

}  // namespace golden

// What the linker's --wrap calls in place of the library's functions that choose, and how those are reached behind
// it. The names are mangled, and the type of sizes is among them.
#define KERNELS_FOR "_ZN6Vellum8internal10KernelsForERKNS_5Mtx2DE"
#define ACTIVE_CLIP_KERNELS "_ZN6Vellum8internal17ActiveClipKernelsEv"
#define ACTIVE_CLEARANCE_KERNELS "_ZN6Vellum8internal22ActiveClearanceKernelsEv"
#if defined(_WIN64)
#define WINDING_OF_RING "_ZN6Vellum8internal13WindingOfRingEPKNS_5DblPtEydd"
#else
#define WINDING_OF_RING "_ZN6Vellum8internal13WindingOfRingEPKNS_5DblPtEmdd"
#endif

namespace golden {

const ClassKernels& LibraryKernelsFor(const Mtx2D& m) __asm__("__real_" KERNELS_FOR);
const ClipKernels& LibraryClipKernels() __asm__("__real_" ACTIVE_CLIP_KERNELS);
const ClearanceKernels& LibraryClearanceKernels() __asm__("__real_" ACTIVE_CLEARANCE_KERNELS);
int64_t LibraryWindingOfRing(const DblPt* pts, size_t count, double x, double y) __asm__("__real_" WINDING_OF_RING);

const ClassKernels& ChosenKernelsFor(const Mtx2D& m) __asm__("__wrap_" KERNELS_FOR);
const ClipKernels& ChosenClipKernels() __asm__("__wrap_" ACTIVE_CLIP_KERNELS);
const ClearanceKernels& ChosenClearanceKernels() __asm__("__wrap_" ACTIVE_CLEARANCE_KERNELS);
int64_t ChosenWindingOfRing(const DblPt* pts, size_t count, double x, double y) __asm__("__wrap_" WINDING_OF_RING);

const ClassKernels& ChosenKernelsFor(const Mtx2D& m) {
    isAskedFor[Points] = true;
    return forced ? forced->point->ForType(m.type) : LibraryKernelsFor(m);
}

const ClipKernels& ChosenClipKernels() {
    isAskedFor[Clip] = true;
    return forced ? *forced->clip : LibraryClipKernels();
}

const ClearanceKernels& ChosenClearanceKernels() {
    isAskedFor[Clearance] = true;
    return forced ? *forced->clearance : LibraryClearanceKernels();
}

int64_t ChosenWindingOfRing(const DblPt* pts, size_t count, double x, double y) {
    isAskedFor[Winding] = true;
    if (!forced) return LibraryWindingOfRing(pts, count, x, y);
    const bool isFew = count < Vellum::internal::kFewestWindingPoints;
    return (isFew ? forced->windingOfFew : forced->winding)(pts, count, x, y);
}

}  // namespace golden
