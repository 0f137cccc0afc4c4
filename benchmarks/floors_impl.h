// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_FLOORS_IMPL_H
#define VELLUM_BENCHMARKS_FLOORS_IMPL_H

#include <cstdint>
#include <cstring>

#include "floors.h"

namespace VellumBench {

/// The passes for one instruction set. `Lane` has a vector type and what can be done with it: Load, Store, Stream (the
/// stores are aligned), Add, FlipSigns, Use (keeps a value alive that nothing needs) and Fence.
///
/// Everything here depends on `Lane`, and nothing is taken from elsewhere that the compiler might not inline: a
/// function that several files share must not be compiled for a processor that only some machines have.
template <typename Lane>
class FloorPasses {
public:
    static constexpr Floors All() { return {Copying, Memcpying, Streaming, Bursts, InPlace, Reading}; }

private:
    static constexpr size_t kWidth = sizeof(typename Lane::Vector);
    static constexpr size_t kCacheLine = 64;

    static size_t UpTo(const void* at, size_t alignment, size_t most) {
        const size_t distance = -reinterpret_cast<uintptr_t>(at) % alignment;
        return distance < most ? distance : most;
    }

    static void ReadBlock(const char* from, size_t bytes) {
        typename Lane::Vector sums[4] = {};
        size_t i = UpTo(from, kWidth, bytes);
        for (; i + 4 * kWidth <= bytes; i += 4 * kWidth) {
            for (size_t k = 0; k < 4; ++k)
                sums[k] = Lane::Add(sums[k], Lane::Load(from + i + k * kWidth));
        }
        for (; i + kWidth <= bytes; i += kWidth)
            sums[0] = Lane::Add(sums[0], Lane::Load(from + i));
        for (const auto& sum : sums)
            Lane::Use(sum);
    }

    template <typename StoreVector>
    static void CopyBlock(char* to, const char* from, size_t bytes, StoreVector store) {
        size_t i = UpTo(to, kWidth, bytes);
        std::memcpy(to, from, i);
        for (; i + kWidth <= bytes; i += kWidth)
            store(to + i, Lane::Load(from + i));
        std::memcpy(to + i, from + i, bytes - i);
    }

    /// Goes through the input in blocks of @p kBlock bytes. For each one `copy` writes its share of the output, in
    /// whole cache lines; the rest of the block is only read.
    template <size_t kBlock, typename Copy>
    static void StepThrough(const void* in, size_t inBytes, void* out, size_t outBytes, Copy copy) {
        const char* source = static_cast<const char*>(in);
        char* target = static_cast<char*>(out);
        const size_t lead = UpTo(target, kCacheLine, outBytes);
        const double share = static_cast<double>(outBytes) / static_cast<double>(inBytes);
        size_t written = 0;
        for (size_t done = 0; done < inBytes; done += kBlock) {
            const size_t block = inBytes - done < kBlock ? inBytes - done : kBlock;
            size_t due = outBytes;
            if (done + block < inBytes) {
                const size_t exact = static_cast<size_t>(static_cast<double>(done + block) * share);
                due = exact < lead ? 0 : lead + (exact - lead) / kCacheLine * kCacheLine;
            }
            const size_t part = due - written < block ? due - written : block;
            copy(target + written, source + done, part);
            ReadBlock(source + done + part, block - part);
            written += part;
        }
    }

    static void Copying(const void* in, size_t inBytes, void* out, size_t outBytes) {
        StepThrough<16384>(in, inBytes, out, outBytes,
                           [](char* to, const char* from, size_t bytes) { CopyBlock(to, from, bytes, Lane::Store); });
    }

    static void Memcpying(const void* in, size_t inBytes, void* out, size_t outBytes) {
        StepThrough<16384>(in, inBytes, out, outBytes, std::memcpy);
    }

    static void Streaming(const void* in, size_t inBytes, void* out, size_t outBytes) {
        StepThrough<1024>(in, inBytes, out, outBytes,
                          [](char* to, const char* from, size_t bytes) { CopyBlock(to, from, bytes, Lane::Stream); });
        Lane::Fence();
    }

    static void Bursts(const void* in, size_t inBytes, void* out, size_t outBytes) {
        StepThrough<8192>(in, inBytes, out, outBytes, [](char* to, const char* from, size_t bytes) {
            ReadBlock(from, bytes);
            CopyBlock(to, from, bytes, Lane::Stream);
        });
        Lane::Fence();
    }

    static void InPlace(void* data, size_t bytes) {
        char* at = static_cast<char*>(data);
        for (size_t i = UpTo(at, kWidth, bytes); i + kWidth <= bytes; i += kWidth) {
            Lane::Store(at + i, Lane::FlipSigns(Lane::Load(at + i)));
        }
    }

    static void Reading(const void* data, size_t bytes) { ReadBlock(static_cast<const char*>(data), bytes); }
};

}  // namespace VellumBench

#endif
