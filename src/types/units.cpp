// SPDX-License-Identifier: MIT
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "vellum/geometry.h"

namespace Vellum {

namespace {

struct Unit {
    const char* abbr;
    double perInch;
};

constexpr Unit kUnits[] = {
    {nullptr, 1.0},         // UnitNone
    {"\"", 1.0},            // UnitInch
    {"mm", 25.4},           // UnitMillimetre
    {nullptr, 1.0},         // UnitUnnamed3
    {"'", 1.0 / 12.0},      // UnitFoot
    {"mi", 1.0 / 63360.0},  // UnitMile
    {"m", 0.0254},          // UnitMetre
    {"km", 0.0000254},      // UnitKilometre
    {"mil", 1000.0},        // UnitMil
    {"\xB5", 25400.0},      // UnitMicron
    {"cm", 2.54},           // UnitCentimetre
    {"\xB5in", 1000000.0},  // UnitMicroinch
    {"yd", 1.0 / 36.0},     // UnitYard
    {"\xC5", 1.0},          // UnitAngstrom
    {"nm", 1.0},            // UnitNanometre
    {"dm", 1.0},            // UnitDecimetre
    {"hm", 1.0},            // UnitHectometre
    {"Gm", 1.0},            // UnitGigametre
    {"AU", 1.0},            // UnitAstronomical
    {"ly", 1.0},            // UnitLightYear
    {"pc", 1.0},            // UnitParsec
    {nullptr, 10000.0},     // UnitTenThousandth
    {nullptr, 100000.0},    // UnitHundredThousandth
};

// Negative units come out of the conversion as too large.
const Unit* FindUnit(int unit) {
    const auto index = static_cast<unsigned>(unit);
    return index < std::size(kUnits) ? &kUnits[index] : nullptr;
}

constexpr double kSizeMatch = FLT_EPSILON;
constexpr double kMeasurementSizes[] = {0.000625, 0.00125, 0.0025, 0.005, 0.0075, 0.01, 0.02};

}  // namespace

double InchesToUnits(double v, int unit) {
    const Unit* found = FindUnit(unit);
    return found ? v * found->perInch : 0.0;
}

double UnitsToInches(double v, int unit) {
    const Unit* found = FindUnit(unit);
    return found ? v / found->perInch : 0.0;
}

const char* UnitsAbbr(int unit) {
    const Unit* found = FindUnit(unit);
    return found ? found->abbr : nullptr;
}

MeasurementSizeEnum::MeasurementSize MeasurementSizeFromFactor(double f) {
    for (size_t i = 0; i < std::size(kMeasurementSizes); ++i) {
        if (std::fabs(f - kMeasurementSizes[i]) < kSizeMatch) {
            return static_cast<MeasurementSizeEnum::MeasurementSize>(i);
        }
    }
    return f > 0.0 ? MeasurementSizeEnum::SizeCustom : MeasurementSizeEnum::SizeNone;
}

}  // namespace Vellum
