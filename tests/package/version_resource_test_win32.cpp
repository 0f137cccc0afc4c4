// SPDX-License-Identifier: MIT

// What Windows shows of the DLL.

#define WIN32_LEAN_AND_MEAN
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace {

class VersionResource : public testing::Test {
protected:
    void SetUp() override {
        bytes.resize(GetFileVersionInfoSizeA(VELLUM_DLL, nullptr));
        ASSERT_TRUE(GetFileVersionInfoA(VELLUM_DLL, 0, static_cast<DWORD>(bytes.size()), bytes.data()));
    }

    std::string Text(const std::string& name) const {
        void* text = nullptr;
        UINT length = 0;
        const std::string path = "\\StringFileInfo\\040904B0\\" + name;
        if (!VerQueryValueA(bytes.data(), path.c_str(), &text, &length)) return "none";
        return static_cast<const char*>(text);
    }

    std::vector<char> bytes;
};

TEST_F(VersionResource, HoldsTheVersionAsNumbers) {
    void* value = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueA(bytes.data(), "\\", &value, &length));
    const VS_FIXEDFILEINFO& info = *static_cast<const VS_FIXEDFILEINFO*>(value);
    const std::vector<int> version = {VELLUM_VERSION_NUMBERS};
    EXPECT_EQ((std::vector<int>{HIWORD(info.dwFileVersionMS), LOWORD(info.dwFileVersionMS),
                                HIWORD(info.dwFileVersionLS), LOWORD(info.dwFileVersionLS)}),
              version);
    EXPECT_EQ((std::vector<int>{HIWORD(info.dwProductVersionMS), LOWORD(info.dwProductVersionMS),
                                HIWORD(info.dwProductVersionLS), LOWORD(info.dwProductVersionLS)}),
              version);
    EXPECT_EQ(info.dwFileType, static_cast<DWORD>(VFT_DLL));
}

TEST_F(VersionResource, HoldsTexts) {
    EXPECT_EQ(Text("FileVersion"), VELLUM_VERSION);
    EXPECT_EQ(Text("ProductVersion"), VELLUM_VERSION);
    EXPECT_EQ(Text("ProductName"), "Vellum");
    EXPECT_EQ(Text("OriginalFilename"), "Vellum.dll");
}

}  // namespace
