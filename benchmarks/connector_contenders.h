// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_CONNECTOR_CONTENDERS_H
#define VELLUM_BENCHMARKS_CONNECTOR_CONTENDERS_H

#include <cstddef>
#include <memory>

#include "dataset.h"

namespace VellumBench {

/// What splits lines where they cross. It has them in its own form from the beginning.
class ConnectorContender {
public:
    virtual ~ConnectorContender() = default;
    virtual void Connect() = 0;
    /// How many segments the split lines have.
    virtual size_t CountPieces() const = 0;
    /// Releases the split lines and all that was made for them. What they were made from stays.
    virtual void Release() = 0;
};

/// Gaps of up to @p tol are joined too.
std::unique_ptr<ConnectorContender> MakeVellumConnector(const Lines& lines, double tol);

/// The function that the library's hosts call for this. It also leaves out repeated pieces, and goes on until nothing
/// crosses any more.
std::unique_ptr<ConnectorContender> MakeGeosNode(const Lines& lines, double tol);
/// The algorithm behind it, once, on line strings as they come.
std::unique_ptr<ConnectorContender> MakeGeosNoder(const Lines& lines, double tol);

/// The lines that Vellum makes, joining ones included.
Lines ConnectedByVellum(const Lines& lines, double tol);

/// What connecting lines takes of the heap, at most and with the lines themselves, for each byte of the lines and the
/// output. 0 where that cannot be told.
double MemoryShareOfVellumConnector(const Lines& lines, double tol);

}  // namespace VellumBench

#endif
