// SPDX-License-Identifier: MIT
#include "arguments.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "error.h"

namespace {

std::string MessageOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const tool::Error& error) {
        return error.what();
    }
    return "no error";
}

TEST(Arguments, Number) {
    EXPECT_EQ(tool::ParseNumber("--rotate", "30"), 30.0);
    EXPECT_EQ(tool::ParseNumber("--rotate", "-137.5"), -137.5);
    EXPECT_EQ(tool::ParseNumber("--rotate", "1e30"), 1e30);
    for (const std::string text : {"", "x", "30x", " 30", "nan", "inf", "2e30", "1e999"}) {
        EXPECT_EQ(MessageOf([&] { tool::ParseNumber("--rotate", text); }),
                  "--rotate: \"" + text + "\" is not a number between -1e30 and 1e30");
    }
}

TEST(Arguments, Length) {
    EXPECT_EQ(tool::ParseLength("--width", "0.25"), 0.25);
    for (const std::string text : {"0", "-1", "wide", "nan", "2e30"}) {
        EXPECT_EQ(MessageOf([&] { tool::ParseLength("--width", text); }),
                  "--width: \"" + text + "\" is not a number above 0 and up to 1e30");
    }
}

TEST(Arguments, Tolerance) {
    EXPECT_EQ(tool::ParseTolerance("--tol", "0.25"), 0.25);
    EXPECT_EQ(tool::ParseTolerance("--tol", "0"), 0.0);
    EXPECT_EQ(tool::ParseTolerance("--tol", "1e30"), 1e30);
    for (const std::string text : {"", "-0.1", "near", "nan", "inf", "2e30", "1 "}) {
        EXPECT_EQ(MessageOf([&] { tool::ParseTolerance("--tol", text); }),
                  "--tol: \"" + text + "\" is not a number from 0 to 1e30");
    }
}

TEST(Arguments, Point) {
    const Vellum::DblPt point = tool::ParsePoint("--center", "-12.5,50");
    EXPECT_EQ(point.x, -12.5);
    EXPECT_EQ(point.y, 50.0);
    for (const std::string text : {"", "12", "12,", ",50", "12,50,3", "12;50", "12, 50", "nan,0"}) {
        EXPECT_EQ(MessageOf([&] { tool::ParsePoint("--center", text); }),
                  "--center: \"" + text + "\" is not a point X,Y of two numbers between -1e30 and 1e30");
    }
}

TEST(Arguments, Size) {
    const tool::PictureSize size = tool::ParseSize("--size", "1600x800");
    EXPECT_EQ(size.width, 1600);
    EXPECT_EQ(size.height, 800);
    for (const std::string text : {"", "1600", "1600x", "x800", "0x800", "1600x-1", "1600x800x3", "1.5x2", "32768x1"}) {
        EXPECT_EQ(MessageOf([&] { tool::ParseSize("--size", text); }),
                  "--size: \"" + text + "\" is not a size WxH of two whole numbers from 1 to 32767");
    }
}

}  // namespace
