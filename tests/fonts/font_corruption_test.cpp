// SPDX-License-Identifier: MIT

// Thousands of damaged fonts, the same in every run.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "fonts/font_machine.h"

namespace {

using fonts_test::Catalogue;
using fonts_test::Machine;
using Vellum::FontFaceRec;
using Vellum::Fonts;

class Corrupter {
public:
    Corrupter() {
        for (const auto& entry : std::filesystem::directory_iterator(VELLUM_TEST_FONTS))
            paths_.push_back(entry.path().string());
        std::sort(paths_.begin(), paths_.end());
        for (const std::string& path : paths_)
            fonts_.push_back(fonts_test::ReadFile(path));
    }

    std::string Next() {
        std::string font = fonts_[Below(fonts_.size())];
        const size_t changes = 1 + Below(4);
        for (size_t i = 0; i < changes && !font.empty(); ++i)
            Change(font);
        return font;
    }

private:
    size_t Below(size_t limit) { return random_() % limit; }

    void Change(std::string& font) {
        static constexpr unsigned char kExtremes[] = {0x00, 0x01, 0x7F, 0x80, 0xFF};
        const size_t at = Below(font.size());
        switch (Below(4)) {
            case 0:
                font[at] = static_cast<char>(Below(256));
                break;
            case 1: {
                // A number of two or four bytes becomes very small or very large.
                const size_t size = std::min<size_t>(Below(2) == 0 ? 2 : 4, font.size() - at);
                font.replace(at, size, size, static_cast<char>(kExtremes[Below(std::size(kExtremes))]));
                break;
            }
            case 2:
                font.resize(at);
                break;
            default: {
                const std::string piece = font.substr(Below(font.size()), 1 + Below(40));
                font.replace(at, std::min(piece.size(), font.size() - at), piece);
                break;
            }
        }
    }

    std::mt19937 random_;
    std::vector<std::string> paths_;
    std::vector<std::string> fonts_;
};

TEST(CorruptedFonts, LeaveTheCatalogueWhole) {
    const Catalogue fonts = fonts_test::EmptyCatalogue();
    const Machine machine;
    fonts_test::SetVariable("KVO_LANG_SUB_DIR", "ja");
    Corrupter corrupter;
    std::string path = machine.Path("corrupted.ttf");
    char* pointer = path.data();
    constexpr int kFonts = 4000;
    int read = 0;
    for (int i = 0; i < kFonts; ++i) {
        machine.Write(path, corrupter.Next());
        const int next = fonts->SetupFontList(&pointer, 0);
        ASSERT_GE(next, 0);
        ASSERT_LE(next, Fonts::kMaxFaces);
        ASSERT_EQ(fonts_test::CountRecords(*fonts), static_cast<size_t>(next));
        for (int j = 0; j < next; ++j) {
            const FontFaceRec& face = fonts->faces[j];
            ASSERT_EQ(face.filePath, path);
            ASSERT_EQ(face.faceIndex, static_cast<uint32_t>(j));
            ASSERT_NE(face.familyName, nullptr);
            ASSERT_NE(face.styleName, nullptr);
            ASSERT_EQ(face.uniFamilyName == nullptr, face.uniFamilyLen == 0);
            ASSERT_EQ(face.uniStyleName == nullptr, face.uniStyleLen == 0);
        }
        fonts->ReduceFontListByStyles();
        fonts->DeleteFontFaceList(fonts->GetFontFaceList());
        read += next > 0 ? 1 : 0;
        fonts_test::ReleaseRecords(fonts->faces);
    }
    // Many are damaged where nobody looks, and many in earnest.
    EXPECT_GT(read, kFonts / 10);
    EXPECT_LT(read, kFonts * 9 / 10);
}

}  // namespace
