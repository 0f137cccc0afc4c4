// SPDX-License-Identifier: MIT

// `ConnectPolylines` against its reference, bit for bit, on random networks: coordinates of many kinds, polylines of
// all lengths, several layers, tolerances from nothing to everything, extents that are out of date.

#include <gtest/gtest.h>

#include <cstdint>

#include "paths/connector_checks.h"
#include "paths/connector_networks.h"
#include "reference/connector.h"
#include "support/random_numbers.h"

namespace {

using paths_tests::Connected;
using paths_tests::Hold;
using paths_tests::Kind;
using paths_tests::Network;
using paths_tests::ShapesOf;
using support::RandomNumbers;

class RandomNetworks : public testing::TestWithParam<Kind> {};

TEST_P(RandomNetworks, AreConnectedAsDefined) {
    constexpr uint64_t kRounds = 300;
    for (uint64_t seed = 0; seed < kRounds; ++seed) {
        RandomNumbers random(seed);
        const Network network = paths_tests::RandomNetwork(GetParam(), random);
        const double tol = paths_tests::RandomTolerance(random);
        const reference::Connected expected = reference::ConnectPolylines(network.lines, ShapesOf(network), tol);
        ASSERT_TRUE(Hold(Connected(network, tol), expected.lines)) << "seed " << seed << ", tolerance " << tol;
    }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, RandomNetworks, testing::ValuesIn(paths_tests::kAllKinds),
                         [](const auto& kind) { return NameOf(kind.param); });

}  // namespace
