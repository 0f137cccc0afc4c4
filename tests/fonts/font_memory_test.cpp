// SPDX-License-Identifier: MIT

// The catalogue where memory runs out.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "fonts/font_machine.h"
#include "support/allocation_guard.h"

namespace {

using fonts_test::Catalogue;
using fonts_test::CountRecords;
using fonts_test::FacesOf;
using fonts_test::Machine;
using support::AllocationGuard;
using Vellum::fnt_lst_t;
using Vellum::FontFaceRec;
using Names = std::vector<std::string>;

class FontMemory : public testing::Test {
protected:
    FontMemory() { fonts_test::SetVariable("KVO_LANG_SUB_DIR", "ja"); }
    ~FontMemory() override { fonts_test::UnsetVariable("KVO_LANG_SUB_DIR"); }

    // Calls with no allocation allowed, then with one, and so on, until the call makes do.
    template <class Call, class Check>
    static void LetMemoryRunOut(Call call, Check check) {
        for (size_t allowed = 0;; ++allowed) {
            bool isEnough = false;
            {
                const AllocationGuard guard(allowed);
                call();
                isEnough = guard.Requests() <= allowed;
            }
            check(isEnough);
            if (isEnough) break;
            ASSERT_LT(allowed, 10000u);
        }
    }

    Catalogue fonts = fonts_test::EmptyCatalogue();
    Machine machine;
};

TEST_F(FontMemory, AFileOfWhichNoPathCanBeKeptIsNotListed) {
    machine.Install("plain.ttf");
    machine.InstallBelow("trio.ttc");
    char** files = nullptr;
    size_t most = 0;
    LetMemoryRunOut([&] { files = fonts->GetFontFileList(); },
                    [&](bool isEnough) {
                        size_t count = 0;
                        for (char** file = files; file != nullptr && *file != nullptr; ++file)
                            ++count;
                        EXPECT_GE(count, most);
                        most = count;
                        EXPECT_EQ(isEnough, count == 2);
                        fonts->FreeFontFileList(&files);
                    });
    EXPECT_EQ(most, 2u);
}

TEST_F(FontMemory, AFaceOfWhichTheStringsCannotBeKeptEndsItsFile) {
    std::string path = fonts_test::TestFont("trio.ttc");
    char* pointer = path.data();
    int next = 0;
    LetMemoryRunOut([&] { next = fonts->SetupFontList(&pointer, 0); },
                    [&](bool isEnough) {
                        EXPECT_EQ(isEnough, next == 3);
                        EXPECT_EQ(CountRecords(*fonts), static_cast<size_t>(next));
                        EXPECT_EQ(fonts->faces[next].styleName, nullptr);
                        fonts_test::ReleaseRecords(fonts->faces);
                    });
}

TEST_F(FontMemory, ALocalizedNameThatCannotBeKeptIsNull) {
    std::string path = fonts_test::TestFont("localized.ttf");
    char* pointer = path.data();
    LetMemoryRunOut([&] { fonts->SetupFontList(&pointer, 0); },
                    [&](bool) {
                        const FontFaceRec& face = fonts->faces[0];
                        EXPECT_EQ(face.uniFamilyName != nullptr, face.uniFamilyLen == 8);
                        EXPECT_EQ(face.uniFamilyName == nullptr, face.uniFamilyLen == 0);
                        EXPECT_EQ(face.uniStyleName != nullptr, face.uniStyleLen == 6);
                        EXPECT_EQ(face.uniStyleName == nullptr, face.uniStyleLen == 0);
                        fonts_test::ReleaseRecords(fonts->faces);
                    });
    EXPECT_EQ(fonts->SetupFontList(&pointer, 0), 1);
    const AllocationGuard guard(0);
    int length = -1;
    EXPECT_EQ(fonts->GetUnicodeForLanguageLite(nullptr, 17, 1, &length), nullptr);
    EXPECT_EQ(length, 0);
}

TEST_F(FontMemory, AScanKeepsWhatItHas) {
    machine.Install("trio.ttc");
    machine.Install("localized.ttf");
    machine.Register("plain.ttf");
    LetMemoryRunOut([&] { fonts->InitFaceList(); },
                    [&](bool isEnough) {
                        const Names all = {"Vellum Local/Bold", "Vellum Trio/Regular", "Vellum Duo/Bold",
                                           "Vellum Trio/Italic", "Vellum Plain/Regular"};
                        const Names faces = FacesOf(*fonts);
                        EXPECT_LE(faces.size(), all.size());
                        if (isEnough) {
                            EXPECT_EQ(faces, all);
                        }
                        for (const FontFaceRec& face : fonts->faces) {
                            EXPECT_EQ(face.filePath == nullptr, face.familyName == nullptr);
                            EXPECT_EQ(face.filePath == nullptr, face.styleName == nullptr);
                        }
                        fonts_test::ReleaseRecords(fonts->faces);
                    });
}

TEST_F(FontMemory, AListIsWholeOrNull) {
    std::string path = fonts_test::TestFont("localized.ttf");
    char* pointer = path.data();
    fonts->SetupFontList(&pointer, 0);
    fnt_lst_t* list = nullptr;
    LetMemoryRunOut([&] { list = fonts->GetFontFaceList(); },
                    [&](bool isEnough) {
                        EXPECT_EQ(list != nullptr, isEnough);
                        if (isEnough) {
                            EXPECT_EQ(fonts_test::TakeNames(*fonts, list).size(), 8u);
                        }
                    });
    char name[] = "Vellum Local";
    LetMemoryRunOut([&] { list = fonts->GetStylesForFontFace(name); },
                    [&](bool isEnough) {
                        EXPECT_EQ(list != nullptr, isEnough);
                        if (isEnough) {
                            EXPECT_EQ(fonts_test::TakeNames(*fonts, list), Names({"Bold"}));
                        }
                    });
}

}  // namespace
