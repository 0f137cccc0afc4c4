// SPDX-License-Identifier: MIT
#include "utf16.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace std::string_literals;

std::string FromBytes(std::string bytes) { return tool::Utf8FromUtf16(bytes.append(2, '\0').data()); }

TEST(Utf16, OfEveryLength) {
    EXPECT_EQ(FromBytes(""), "");
    EXPECT_EQ(FromBytes("A\0~\0\x7F\0"s), "A~\x7F");
    EXPECT_EQ(FromBytes("\x80\0\xFF\x07"s), "\xC2\x80\xDF\xBF");
    EXPECT_EQ(FromBytes("\0\x08\xE0\x30\xFF\xFF"s), "\xE0\xA0\x80\xE3\x83\xA0\xEF\xBF\xBF");
    EXPECT_EQ(FromBytes("\0\xD8\0\xDC\xFF\xDB\xFF\xDF"s), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(Utf16, HalvesOfPairsAreReplaced) {
    EXPECT_EQ(FromBytes("\0\xDC"
                        "A\0"s),
              "\xEF\xBF\xBD"
              "A");
    EXPECT_EQ(FromBytes("\0\xD8"
                        "A\0"s),
              "\xEF\xBF\xBD"
              "A");
    EXPECT_EQ(FromBytes("\0\xD8\xFF\xDB\xFF\xDF"s), "\xEF\xBF\xBD\xF4\x8F\xBF\xBF");
    EXPECT_EQ(FromBytes("A\0\0\xD8"s), "A\xEF\xBF\xBD");
}

}  // namespace
