// SPDX-License-Identifier: MIT
#include "fonts/font_machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>
#include <utility>

namespace fonts_test {

namespace fs = std::filesystem;

using Vellum::fnt_lst_t;
using Vellum::FontFaceRec;
using Vellum::Fonts;

namespace {

constexpr const char* kStrokeFonts[] = {"Hershey",  "HersheyBold", "HersheyItalic",   "Iges1001",
                                        "Iges1002", "Iges1003",    "HersheyMonospace"};

std::u16string Localized(const char* bytes) {
    std::u16string text;
    for (;; bytes += 2) {
        const auto low = static_cast<unsigned char>(bytes[0]);
        const auto high = static_cast<unsigned char>(bytes[1]);
        const auto unit = static_cast<char16_t>(low | high << 8);
        if (unit == 0) return text;
        text += unit;
    }
}

std::string BigEndian(size_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
    return bytes;
}

size_t NumberAt(const std::string& bytes, size_t offset, size_t size) {
    size_t value = 0;
    for (size_t i = 0; i < size; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes.at(offset + i));
    return value;
}

}  // namespace

std::string Machine::Install(const std::string& font, const std::string& as) const {
    return Copy(font, Folder() + static_cast<char>(fs::path::preferred_separator) + (as.empty() ? font : as));
}

std::string Machine::Copy(const std::string& font, const std::string& path) const {
    fs::create_directories(fs::path(path).parent_path());
    fs::copy_file(TestFont(font), path);
    return path;
}

void Machine::Write(const std::string& path, const std::string& bytes) const {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string TestFont(const std::string& name) { return std::string(VELLUM_TEST_FONTS) + '/' + name; }

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void ReleaseRecords(FontFaceRec* faces) {
    std::for_each(faces, faces + Fonts::kMaxFaces, [](FontFaceRec& face) {
        for (const char* text : {face.filePath, face.familyName, face.styleName, face.uniFamilyName, face.uniStyleName})
            delete[] text;
        face = {};
    });
}

void CatalogueDeleter::operator()(Fonts* fonts) const {
    ReleaseRecords(fonts->faces);
    delete fonts;
}

Catalogue ScannedCatalogue() {
    Catalogue fonts(new Fonts);
    EXPECT_TRUE(fonts->InitializeFreeType());
    return fonts;
}

Catalogue EmptyCatalogue() {
    const Machine machine;
    machine.Install("plain.ttf");
    Catalogue fonts = ScannedCatalogue();
    ReleaseRecords(fonts->faces);
    return fonts;
}

size_t CountRecords(const Fonts& fonts) {
    const auto isFree = [](const FontFaceRec& face) { return face.filePath == nullptr; };
    return static_cast<size_t>(std::find_if(std::begin(fonts.faces), std::end(fonts.faces), isFree) - fonts.faces);
}

std::vector<std::string> FamilyNames(const Fonts& fonts) {
    std::vector<std::string> names;
    for (size_t i = 0; i < CountRecords(fonts); ++i)
        names.emplace_back(fonts.faces[i].familyName);
    return names;
}

std::vector<std::string> FacesOf(const Fonts& fonts) {
    std::vector<std::string> names;
    for (size_t i = 0; i < CountRecords(fonts); ++i)
        names.push_back(std::string(fonts.faces[i].familyName) + '/' + fonts.faces[i].styleName);
    return names;
}

std::vector<std::string> FilesOf(const Fonts& fonts) {
    std::vector<std::string> files;
    for (size_t i = 0; i < CountRecords(fonts); ++i)
        files.emplace_back(fonts.faces[i].filePath);
    return files;
}

std::vector<unsigned> IndicesOf(const uint32_t (&indices)[Fonts::kMaxFaces]) {
    return {indices, std::find(std::begin(indices), std::end(indices), 0xFFFFFFFFu)};
}

bool operator==(const Entry& a, const Entry& b) {
    return a.name == b.name && a.localized == b.localized && a.file == b.file;
}

void PrintTo(const Entry& entry, std::ostream* out) {
    *out << testing::PrintToString(entry.name) << ' ' << testing::PrintToString(entry.localized) << ' '
         << testing::PrintToString(entry.file);
}

std::vector<Entry> TakeEntries(Fonts& fonts, fnt_lst_t* list) {
    std::vector<Entry> entries;
    if (list == nullptr) {
        ADD_FAILURE() << "there is no list";
        return entries;
    }
    for (const fnt_lst_t* entry = list; entry->face_name != nullptr; ++entry) {
        entries.push_back({entry->face_name, {}, {}});
        if (entry->uni_name != nullptr) entries.back().localized = Localized(entry->uni_name);
        if (entry->file_name != nullptr) entries.back().file = entry->file_name;
    }
    fonts.DeleteFontFaceList(list);
    return entries;
}

std::vector<std::string> TakeNames(Fonts& fonts, fnt_lst_t* list) {
    std::vector<std::string> names;
    for (const Entry& entry : TakeEntries(fonts, list))
        names.push_back(entry.name);
    return names;
}

std::vector<std::string> InstalledFaces(Fonts& fonts) {
    std::vector<std::string> names = TakeNames(fonts, fonts.GetFontFaceList());
    for (const std::string_view strokeFont : kStrokeFonts)
        std::erase(names, strokeFont);
    return names;
}

std::vector<std::string> StylesOf(Fonts& fonts, std::string face) {
    fnt_lst_t* styles = fonts.GetStylesForFontFace(face.data());
    if (styles == nullptr) return {};
    std::vector<std::string> names;
    for (const Entry& entry : TakeEntries(fonts, styles)) {
        EXPECT_EQ(entry.localized, std::nullopt);
        EXPECT_EQ(entry.file, std::nullopt);
        names.push_back(entry.name);
    }
    return names;
}

std::vector<std::string> FolderFiles(Fonts& fonts, const std::string& prefix) {
    std::vector<std::string> files;
    char** list = fonts.GetFontFileList();
    for (char** path = list; path != nullptr && *path != nullptr; ++path) {
        const std::string_view file = *path;
        EXPECT_TRUE(file.starts_with(prefix)) << file;
        files.emplace_back(file.substr(prefix.size()));
    }
    fonts.FreeFontFileList(&list);
    EXPECT_EQ(list, nullptr);
    return files;
}

std::string CollectionOf(const std::string& font, size_t faces) {
    // FreeType does not believe in faces that take less than 32 bytes each.
    const size_t header = 12 + 4 * faces;
    const size_t padding = 32 * faces;
    std::string collection = "ttcf" + BigEndian(0x10000) + BigEndian(faces);
    for (size_t i = 0; i < faces; ++i)
        collection += BigEndian(header);
    collection += font;
    // The tables' offsets count from the beginning of the file.
    const size_t tables = NumberAt(font, 4, 2);
    for (size_t i = 0; i < tables; ++i) {
        const size_t offset = 12 + 16 * i + 8;
        collection.replace(header + offset, 4, BigEndian(NumberAt(font, offset, 4) + header));
    }
    return collection + std::string(padding, '\0');
}

}  // namespace fonts_test
