// SPDX-License-Identifier: MIT
#include "fonts_command.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "command_line.h"
#include "error.h"
#include "standard_output.h"
#include "table.h"
#include "text.h"
#include "utf16.h"
#include "vellum/fonts.h"

namespace tool {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kIndent = 2;

const char* const kFormat =
    "For every face: its name, the file of its first font, and its localized name. The built-in stroke fonts\n"
    "stand among the installed ones and have no file. Names are in byte-wise order. Localized names are read\n"
    "in the language that the environment variable KVO_LANG_SUB_DIR selects (de, es, fr, it, ja, JaPCK, ko,\n"
    "pt, ru, ZhBIG5, ZhGBK), and there are none without it. What a face does not have is a hyphen, and null\n"
    "in JSON. With --styles: the styles of that face, in the order in which they were found.";

struct FontsArguments {
    std::string face;
    bool json = false;
};

struct ListDeleter {
    void operator()(Vellum::fnt_lst_t* list) const { Vellum::Fonts::getInstance()->DeleteFontFaceList(list); }
};

/// A list of the catalogue, to go through with a range-based for.
class FontNames {
public:
    explicit FontNames(Vellum::fnt_lst_t* list) : list_(list), end_(list) {
        while (end_ != nullptr && end_->face_name != nullptr)
            ++end_;
    }

    bool Exists() const { return list_ != nullptr; }
    const Vellum::fnt_lst_t* begin() const { return list_.get(); }
    const Vellum::fnt_lst_t* end() const { return end_; }

private:
    std::unique_ptr<Vellum::fnt_lst_t, ListDeleter> list_;
    const Vellum::fnt_lst_t* end_;
};

FontNames Faces() {
    FontNames faces(Vellum::Fonts::getInstance()->GetFontFaceList());
    if (!faces.Exists()) throw Error("no font is installed that can be read");
    return faces;
}

FontNames StylesOf(std::string face) {
    const FontNames faces = Faces();
    FontNames styles(Vellum::Fonts::getInstance()->GetStylesForFontFace(face.data()));
    if (styles.Exists()) return styles;
    const bool isListed =
        std::any_of(faces.begin(), faces.end(), [&face](const auto& listed) { return listed.face_name == face; });
    if (isListed) throw Error("--styles: the face \"" + face + "\" has no styles");
    throw Error("--styles: no face is named \"" + face + "\"; vellum fonts lists the names");
}

void PrintFaces(std::ostream& out) {
    const auto orHyphen = [](const std::string& text) { return text.empty() ? "-" : OneLine(text); };
    // All but the last hold words; that one is not filled up.
    Table<3> table(0b011);
    table.Add({"name", "file", "localized name"});
    for (const Vellum::fnt_lst_t& face : Faces()) {
        const std::string file = face.file_name == nullptr ? "" : face.file_name;
        const std::string localized = face.uni_name == nullptr ? "" : Utf8FromUtf16(face.uni_name);
        table.Add({OneLine(face.face_name), orHyphen(file), orHyphen(localized)});
    }
    table.Print(out);
}

void PrintStyles(const std::string& face, std::ostream& out) {
    for (const Vellum::fnt_lst_t& style : StylesOf(face))
        out << OneLine(style.face_name) << '\n';
}

Json JsonOfFaces() {
    Json faces = Json::array();
    for (const Vellum::fnt_lst_t& face : Faces()) {
        const Json file = face.file_name == nullptr ? Json() : Json(face.file_name);
        const Json localized = face.uni_name == nullptr ? Json() : Json(Utf8FromUtf16(face.uni_name));
        faces.push_back({{"name", face.face_name}, {"file", file}, {"localizedName", localized}});
    }
    return {{"faces", std::move(faces)}};
}

Json JsonOfStyles(const std::string& face) {
    Json styles = Json::array();
    for (const Vellum::fnt_lst_t& style : StylesOf(face))
        styles.push_back(style.face_name);
    return {{"name", face}, {"styles", std::move(styles)}};
}

void PrintJson(const Json& document, std::ostream& out) {
    // Paths may hold any bytes; those that are no text are replaced.
    out << document.dump(kIndent, ' ', false, Json::error_handler_t::replace) << '\n';
}

void PrintFonts(const FontsArguments& arguments, bool ofOneFace) {
    if (arguments.json) {
        PrintJson(ofOneFace ? JsonOfStyles(arguments.face) : JsonOfFaces(), std::cout);
    } else if (ofOneFace) {
        PrintStyles(arguments.face, std::cout);
    } else {
        PrintFaces(std::cout);
    }
    FinishOutput();
}

}  // namespace

void AddFontsCommand(CommandLine& line) {
    Verb verb = line.AddVerb("fonts", "List the faces of the installed fonts, or the styles of one");
    const auto arguments = std::make_shared<FontsArguments>();
    const Option styles =
        verb.Text("--styles", arguments->face, "List the styles of this face instead").Placeholder("FACE");
    verb.Flag("--json", arguments->json, "Print one JSON document instead");
    verb.Footer(kFormat);
    verb.Action([arguments, styles] { PrintFonts(*arguments, styles.IsGiven()); });
}

}  // namespace tool
