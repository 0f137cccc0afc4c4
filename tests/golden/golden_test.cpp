// SPDX-License-Identifier: MIT

// The results of the library are the same bits on every platform, with every compiler and in every vector path: this
// program computes them from inputs that are the same everywhere and compares their hashes with those checked in.
// What hangs on the platform's maths library is compared with values that are checked in, to two units in the last
// place.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "golden/families.h"
#include "golden/forced_kernels.h"
#include "types/instruction_set.h"

namespace {

using golden::Digest;
using golden::Families;
using golden::Family;
using golden::Inputs;
using golden::Reading;
using Vellum::internal::InstructionSet;

constexpr const char* kHashes = VELLUM_GOLDEN_DIRECTORY "/golden_hashes.txt";
constexpr const char* kValues = VELLUM_GOLDEN_DIRECTORY "/maths_library_values.txt";

constexpr int kPassed = 0;
constexpr int kFailed = 1;
constexpr int kMisused = 2;
constexpr int kSkipped = 77;

constexpr double kTolerance = 2.0;

struct NamedText {
    std::string name;
    std::string text;
};

using Lines = std::vector<NamedText>;

Lines ReadLines(const char* path) {
    std::ifstream file(path);
    Lines lines;
    std::string line;
    while (std::getline(file, line)) {
        std::istringstream words(line);
        NamedText read;
        if (line.rfind('#', 0) != 0 && words >> read.name >> read.text) lines.push_back(read);
    }
    return lines;
}

bool WriteLines(const char* path, const char* title, const Lines& lines) {
    std::ofstream file(path, std::ios::binary);
    file << title;
    for (const NamedText& line : lines)
        file << line.name << ' ' << line.text << '\n';
    file.close();
    if (file) return true;
    std::printf("%s cannot be written\n", path);
    return false;
}

Lines ComputeHashes() {
    Lines hashes;
    for (const auto familiesOf :
         {golden::GeometryFamilies, golden::RectangleFamilies, golden::MatrixFamilies, golden::TransformFamilies,
          golden::ChainFamilies, golden::CircleFamilies, golden::EllipseFamilies, golden::ClearanceFamilies,
          golden::ClippingFamilies, golden::ConnectorFamilies, golden::ShortestPathFamilies}) {
        for (const Family& family : familiesOf()) {
            Inputs inputs(family.name);
            Digest digest;
            family.compute(inputs, digest);
            char text[17];
            std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(digest.Value()));
            hashes.push_back({family.name, text});
        }
    }
    return hashes;
}

/// Hexadecimal digits and a binary exponent, without a 0x: as to_chars writes it, the same everywhere.
std::string TextOf(double v) {
    char text[64];
    const auto written = std::to_chars(std::begin(text), std::end(text), v, std::chars_format::hex);
    return {text, written.ptr};
}

double ValueOf(const std::string& text) {
    double v = std::numeric_limits<double>::quiet_NaN();
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, v, std::chars_format::hex);
    return read.ec == std::errc() && read.ptr == end ? v : std::numeric_limits<double>::quiet_NaN();
}

bool CheckHashes() {
    std::map<std::string, std::string> expected;
    for (const NamedText& line : ReadLines(kHashes))
        expected[line.name] = line.text;
    int differing = 0;
    const Lines found = ComputeHashes();
    for (const NamedText& hash : found) {
        const auto known = expected.find(hash.name);
        const std::string before = known == expected.end() ? "none" : known->second;
        if (known != expected.end()) expected.erase(known);
        if (hash.text == before) continue;
        std::printf("%s: %s, expected %s\n", hash.name.c_str(), hash.text.c_str(), before.c_str());
        ++differing;
    }
    for (const auto& [name, text] : expected)
        std::printf("%s: expected %s, but no results have this name\n", name.c_str(), text.c_str());
    std::printf("%zu hashes, %d of them different\n", found.size(), differing);
    return differing == 0 && expected.empty();
}

double UnitInLastPlace(double v) {
    const double size = std::fabs(v);
    return std::nextafter(size, std::numeric_limits<double>::infinity()) - size;
}

bool IsNear(const Reading& reading, double expected) {
    const double unit = UnitInLastPlace(std::max(std::fabs(expected), reading.magnitude));
    return std::fabs(reading.value - expected) <= kTolerance * unit;
}

bool CheckValues() {
    const Lines expected = ReadLines(kValues);
    const std::vector<Reading> readings = golden::MathsLibraryReadings();
    bool isGood = expected.size() == readings.size();
    if (!isGood) std::printf("%zu values, but %zu expected\n", readings.size(), expected.size());
    int inexact = 0;
    for (size_t i = 0; i < std::min(expected.size(), readings.size()); ++i) {
        const double value = ValueOf(expected[i].text);
        if (readings[i].value != value) ++inexact;
        if (readings[i].name == expected[i].name && IsNear(readings[i], value)) continue;
        std::printf("%s: %s, expected %s %s\n", readings[i].name.c_str(), TextOf(readings[i].value).c_str(),
                    expected[i].name.c_str(), expected[i].text.c_str());
        isGood = false;
    }
    std::printf("%zu values of the maths library, %d of them not to the last bit\n", readings.size(), inexact);
    return isGood;
}

/// Without it, a loop that was to be forced would pass for one that was.
bool CheckCoverage() {
    const std::vector<std::string> missing = golden::KernelsNotAskedFor();
    for (const std::string& name : missing)
        std::printf("the loops for %s were never asked for\n", name.c_str());
    return missing.empty();
}

int Check() {
    const bool hashesAgree = CheckHashes();
    const bool valuesAgree = CheckValues();
    return hashesAgree && valuesAgree && CheckCoverage() ? kPassed : kFailed;
}

bool WriteHashes() {
    return WriteLines(kHashes, "# Hashes of results that are the same bits everywhere: golden_test --write-hashes\n",
                      ComputeHashes());
}

bool WriteValues() {
    Lines lines;
    for (const Reading& reading : golden::MathsLibraryReadings())
        lines.push_back({reading.name, TextOf(reading.value)});
    return WriteLines(kValues,
                      "# Results that hang on the maths library, as hexadecimal numbers: golden_test --write-values\n",
                      lines);
}

struct SetName {
    const char* name;
    InstructionSet set;
};

constexpr SetName kSets[] = {{"plain", InstructionSet::Plain},
                             {"sse2", InstructionSet::Sse2},
                             {"avx2", InstructionSet::Avx2},
                             {"avx512", InstructionSet::Avx512}};

int CheckWith(const SetName& chosen) {
    if (!IsOffered(chosen.set) || !golden::ForceKernels(chosen.set)) {
        std::printf("skipped: this processor does not offer %s\n", chosen.name);
        return kSkipped;
    }
    return Check();
}

int Run(const std::vector<std::string_view>& arguments) {
    if (arguments.empty()) return Check();
    if (arguments.size() == 1) {
        if (arguments[0] == "--write-hashes") return WriteHashes() ? kPassed : kFailed;
        if (arguments[0] == "--write-values") return WriteValues() ? kPassed : kFailed;
        for (const SetName& known : kSets)
            if (arguments[0] == known.name) return CheckWith(known);
    }
    std::printf("usage: golden_test [plain|sse2|avx2|avx512|--write-hashes|--write-values]\n");
    return kMisused;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(std::vector<std::string_view>(argv + 1, argv + argc));
    } catch (const std::exception& failure) {
        std::printf("%s\n", failure.what());
        return kFailed;
    }
}
