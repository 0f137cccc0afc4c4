// SPDX-License-Identifier: MIT
#include <chrono>
#include <exception>
#include <random>

#include "vellum/geometry.h"

namespace Vellum {

namespace {

std::mt19937::result_type RandomSeed() {
    try {
        return std::random_device{}();
    } catch (const std::exception&) {
        // A machine without a source of randomness still deserves a colour, and no exception may reach the host.
        return static_cast<std::mt19937::result_type>(std::chrono::steady_clock::now().time_since_epoch().count());
    }
}

}  // namespace

unsigned char RandColorComp(unsigned lo, unsigned hi) {
    std::mt19937 generator(RandomSeed());
    return static_cast<unsigned char>(std::uniform_int_distribution<unsigned>(lo, hi)(generator));
}

}  // namespace Vellum
