// SPDX-License-Identifier: MIT
#include "geojson_reader.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "error.h"
#include "input_file.h"
#include "json_document.h"
#include "json_place.h"
#include "progress.h"
#include "text.h"

namespace tool {

namespace {

using Json = nlohmann::json;

// Geometry collections within one another; enough for any file, and far below what the call stack holds.
constexpr int kDeepestCollection = 64;

/// What a value is, as words that can follow "not".
std::string Kind(const Json& value) {
    switch (value.type()) {
        case Json::value_t::null:
            return "null";
        case Json::value_t::object:
            return "an object";
        case Json::value_t::array:
            return "an array";
        case Json::value_t::string:
            return "a string";
        case Json::value_t::boolean:
            return "a boolean";
        default:
            return "a number";
    }
}

/// A text in quotes; a long one is cut.
std::string Quoted(const std::string& text) {
    constexpr std::size_t kLongest = 40;
    return '"' + (text.size() <= kLongest ? text : text.substr(0, kLongest) + "...") + '"';
}

class Reader {
public:
    Reader(std::string name, Progress& progress) : name_(std::move(name)), progress_(progress) {}

    Drawing Read(const Json& document) {
        const JsonPlace root;
        const std::string type = TypeOf(document, root);
        Drawing drawing;
        if (type == "FeatureCollection") {
            drawing.features = ReadFeatures(ArrayMember(document, "features", root), root.Member("features"));
        } else if (type == "Feature") {
            drawing.features.push_back(ReadFeature(document, root));
        } else {
            ReadShape(document, root, drawing.features.emplace_back());
        }
        const auto empty = [](const Feature& feature) { return feature.geometry.Empty(); };
        if (std::all_of(drawing.features.begin(), drawing.features.end(), empty)) Fail(root, "holds no geometry");
        return drawing;
    }

private:
    [[noreturn]] void Fail(const JsonPlace& place, const std::string& cause) const {
        const std::string where = place.Text();
        throw Error(name_ + ": " + (where.empty() ? "" : where + ": ") + cause);
    }

    const Json& Member(const Json& object, const char* name, const JsonPlace& place) const {
        const auto member = object.find(name);
        if (member == object.end()) Fail(place, std::string("has no member \"") + name + "\"");
        return *member;
    }

    const Json& ArrayMember(const Json& object, const char* name, const JsonPlace& place) const {
        return Array(Member(object, name, place), place.Member(name));
    }

    const Json& Array(const Json& value, const JsonPlace& place) const {
        if (!value.is_array()) Fail(place, "must be an array, not " + Kind(value));
        return value;
    }

    std::string TypeOf(const Json& value, const JsonPlace& place) const {
        if (!value.is_object()) Fail(place, "must be a GeoJSON object, not " + Kind(value));
        const Json& type = Member(value, "type", place);
        if (!type.is_string()) Fail(place.Member("type"), "must be a string, not " + Kind(type));
        return type.get<std::string>();
    }

    std::vector<Feature> ReadFeatures(const Json& values, const JsonPlace& place) {
        progress_.Begin("reading", values.size());
        std::vector<Feature> features;
        features.reserve(values.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
            const JsonPlace element = place.Element(i);
            const std::string type = TypeOf(values[i], element);
            if (type != "Feature") Fail(element.Member("type"), "must be \"Feature\", not " + Quoted(type));
            features.push_back(ReadFeature(values[i], element));
            progress_.Advance();
        }
        return features;
    }

    Feature ReadFeature(const Json& value, const JsonPlace& place) const {
        Feature feature;
        const auto properties = value.find("properties");
        if (properties != value.end()) ReadProperties(*properties, place.Member("properties"), feature);
        const Json& geometry = Member(value, "geometry", place);
        if (!geometry.is_null()) ReadShape(geometry, place.Member("geometry"), feature);
        return feature;
    }

    void ReadShape(const Json& value, const JsonPlace& place, Feature& feature) const {
        feature.type = TypeOf(value, place);
        ReadGeometry(value, place, 0, feature.geometry);
    }

    /// Properties mean what their owner likes: those that do not say a name or a colour are passed over.
    void ReadProperties(const Json& value, const JsonPlace& place, Feature& feature) const {
        if (value.is_null()) return;
        if (!value.is_object()) Fail(place, "must be an object or null, not " + Kind(value));
        feature.name = NameAmong(value);
        const auto colour = value.find("color");
        if (colour != value.end()) ReadColour(*colour, feature);
    }

    /// The property "name", or else the first one that is written so in another letter case.
    static std::string NameAmong(const Json& properties) {
        const auto exact = properties.find("name");
        if (exact != properties.end() && exact->is_string()) return exact->get<std::string>();
        for (const auto& [key, value] : properties.items()) {
            if (value.is_string() && EqualsInAnyCase(key, "name")) return value.get<std::string>();
        }
        return {};
    }

    static void ReadColour(const Json& value, Feature& feature) {
        if (value.is_string()) {
            if (const auto colour = ParseColour(value.get_ref<const std::string&>())) feature.colour = *colour;
        } else if (value.is_number()) {
            const double index = value.get<double>();
            const bool whole = std::floor(index) == index;
            if (whole && index >= 1.0 && index <= static_cast<double>(PaletteSize())) {
                feature.colour = static_cast<std::size_t>(index);
            }
        }
    }

    void ReadGeometry(const Json& value, const JsonPlace& place, int depth, Geometry& geometry) const {
        const std::string type = TypeOf(value, place);
        if (type == "GeometryCollection") {
            ReadCollection(ArrayMember(value, "geometries", place), place.Member("geometries"), depth, geometry);
            return;
        }
        const auto* shape = std::find_if(std::begin(kShapes), std::end(kShapes),
                                         [&type](const Shape& candidate) { return candidate.type == type; });
        if (shape == std::end(kShapes)) Fail(place.Member("type"), "unknown type " + Quoted(type));
        const Json& coordinates = ArrayMember(value, "coordinates", place);
        if (!coordinates.empty()) (this->*shape->read)(coordinates, place.Member("coordinates"), geometry);
    }

    void ReadCollection(const Json& values, const JsonPlace& place, int depth, Geometry& geometry) const {
        if (depth == kDeepestCollection) Fail(place, "geometry collections are nested too deeply");
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (!values[i].is_null()) ReadGeometry(values[i], place.Element(i), depth + 1, geometry);
        }
    }

    void AddPoint(const Json& value, const JsonPlace& place, Geometry& geometry) const {
        geometry.points.push_back(ReadPosition(value, place));
    }

    void AddLine(const Json& value, const JsonPlace& place, Geometry& geometry) const {
        Points line = ReadPositions(value, place);
        if (line.size() < 2) Fail(place, "a line needs 2 positions or more");
        geometry.lines.push_back(std::move(line));
    }

    void AddPolygon(const Json& value, const JsonPlace& place, Geometry& geometry) const {
        Array(value, place);
        Polygon polygon;
        for (std::size_t i = 0; i < value.size(); ++i) {
            polygon.push_back(ReadRing(value[i], place.Element(i)));
        }
        if (!polygon.empty()) geometry.polygons.push_back(std::move(polygon));
    }

    using Add = void (Reader::*)(const Json&, const JsonPlace&, Geometry&) const;

    template <Add add>
    void AddEach(const Json& values, const JsonPlace& place, Geometry& geometry) const {
        for (std::size_t i = 0; i < values.size(); ++i) {
            (this->*add)(values[i], place.Element(i), geometry);
        }
    }

    Points ReadRing(const Json& value, const JsonPlace& place) const {
        Points ring = ReadPositions(value, place);
        if (ring.size() < 4) Fail(place, "a ring needs 4 positions or more");
        if (!ring.front().IsExactly(ring.back())) Fail(place, "a ring must end with the position it begins with");
        return ring;
    }

    Points ReadPositions(const Json& value, const JsonPlace& place) const {
        Array(value, place);
        Points points;
        points.reserve(value.size());
        for (std::size_t i = 0; i < value.size(); ++i) {
            points.push_back(ReadPosition(value[i], place.Element(i)));
        }
        return points;
    }

    /// Altitudes and the like, beyond x and y, are checked and left out.
    Vellum::DblPt ReadPosition(const Json& value, const JsonPlace& place) const {
        Array(value, place);
        if (value.size() < 2) Fail(place, "a position needs 2 coordinates or more");
        for (std::size_t i = 0; i < value.size(); ++i) {
            CheckCoordinate(value[i], place.Element(i));
        }
        return {value[0].get<double>(), value[1].get<double>()};
    }

    void CheckCoordinate(const Json& value, const JsonPlace& place) const {
        if (!value.is_number()) Fail(place, "a coordinate must be a number, not " + Kind(value));
        if (!(std::fabs(value.get<double>()) <= kLargestCoordinate)) {
            Fail(place, "a coordinate must lie between -1e30 and 1e30");
        }
    }

    struct Shape {
        const char* type;
        Add read;
    };
    static const Shape kShapes[6];

    std::string name_;
    Progress& progress_;
};

const Reader::Shape Reader::kShapes[6] = {
    {"Point", &Reader::AddPoint},     {"MultiPoint", &Reader::AddEach<&Reader::AddPoint>},
    {"LineString", &Reader::AddLine}, {"MultiLineString", &Reader::AddEach<&Reader::AddLine>},
    {"Polygon", &Reader::AddPolygon}, {"MultiPolygon", &Reader::AddEach<&Reader::AddPolygon>},
};

}  // namespace

Drawing ReadGeoJson(const std::string& path, Progress& progress) {
    return ParseGeoJson(ReadFile(path), path, progress);
}

Drawing ParseGeoJson(const std::string& text, const std::string& name, Progress& progress) {
    return DrawingOf(ParseGeoJsonDocument(text, name), name, progress);
}

Json ParseGeoJsonDocument(const std::string& text, const std::string& name) {
    if (text.empty()) throw Error(name + ": the file is empty");
    return ParseJson(text, name);
}

Drawing DrawingOf(const Json& document, const std::string& name, Progress& progress) {
    return Reader(name, progress).Read(document);
}

}  // namespace tool
