// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_FLOORS_H
#define VELLUM_BENCHMARKS_FLOORS_H

#include <cstddef>

namespace VellumBench {

/// The least that work on so many bytes can cost: passes over the memory that compute next to nothing. Which of the
/// first four is the fastest depends on where the bytes lie; that one is the floor.
struct Floors {
    /// Reads @p inBytes and writes @p outBytes, no more than are read, in step.
    using ReadWrite = void (*)(const void* in, size_t inBytes, void* out, size_t outBytes);

    ReadWrite copying;
    ReadWrite memcpying;  ///< copies by `std::memcpy`
    ReadWrite streaming;  ///< past the caches: the memory is not read before it is written
    ReadWrite bursts;     ///< the same, but reads for a while, then writes: to turn round costs the memory time
    void (*inPlace)(void* data, size_t bytes);        ///< reads and writes the same bytes
    void (*reading)(const void* data, size_t bytes);  ///< reads every byte once
};

/// Those for the widest vectors of this machine.
const Floors& MachineFloors();

}  // namespace VellumBench

#endif
