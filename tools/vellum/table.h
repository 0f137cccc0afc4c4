// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_TABLE_H
#define VELLUM_TOOL_TABLE_H

#include <algorithm>
#include <array>
#include <bitset>
#include <cstddef>
#include <iomanip>
#include <ostream>
#include <string>
#include <vector>

namespace tool {

/// Rows of texts, in columns that are as wide as their widest text.
template <std::size_t kColumns>
class Table {
public:
    using Row = std::array<std::string, kColumns>;

    /// A set bit makes the column one of words, which start on its left; the others hold numbers.
    explicit Table(std::bitset<kColumns> words) : words_(words) {}

    void Add(const Row& row) {
        for (std::size_t i = 0; i < kColumns; ++i) {
            widths_[i] = std::max(widths_[i], row[i].size());
        }
        rows_.push_back(row);
    }

    /// The last column may hold anything and is not filled up.
    void Print(std::ostream& out) const {
        for (const Row& row : rows_) {
            for (std::size_t i = 0; i + 1 < kColumns; ++i) {
                out << (words_[i] ? std::left : std::right) << std::setw(static_cast<int>(widths_[i])) << row[i]
                    << "  ";
            }
            out << row.back() << '\n';
        }
    }

private:
    std::bitset<kColumns> words_;
    std::array<std::size_t, kColumns> widths_{};
    std::vector<Row> rows_;
};

}  // namespace tool

#endif
