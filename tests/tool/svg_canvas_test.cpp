// SPDX-License-Identifier: MIT
#include "svg_canvas.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tool::Rgb;
using tool::SvgCanvas;

// Device units are 64ths of a pixel.
constexpr int kPixel = 64;

const std::string kStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"30\" height=\"20\" fill=\"none\" fill-rule=\"evenodd\" "
    "stroke-linejoin=\"round\" stroke-linecap=\"round\" font-family=\"sans-serif\">\n";
const std::string kEnd = "</svg>\n";

class SvgCanvasTest : public testing::Test {
protected:
    void ExpectDrawn(const std::string& elements) const { EXPECT_EQ(canvas.Document(), kStart + elements + kEnd); }

    SvgCanvas canvas{{30, 20}};
};

TEST_F(SvgCanvasTest, FillsAndFramesThePicture) {
    canvas.Background();
    canvas.Paper();
    canvas.Frame();
    ExpectDrawn(
        "<rect width=\"30\" height=\"20\" fill=\"#e4eef4\"/>\n"
        "<rect width=\"30\" height=\"20\" fill=\"#ffffff\"/>\n"
        "<rect width=\"30\" height=\"20\" stroke=\"#5d6b78\" stroke-width=\"4\"/>\n");
}

TEST_F(SvgCanvasTest, DrawsTheRingsOfAPolygonAsOnePath) {
    canvas.Polygon({{{0, 0}, {2 * kPixel, 0}, {kPixel, 3 * kPixel}}, {{1, 2}, {-32, 4}, {5, 6}}}, Rgb(0x336699));
    // The outline is 0.55 of the way from the colour to ink.
    ExpectDrawn(
        "<path d=\"M0 0L2 0L1 3ZM0.015625 0.03125L-0.5 0.0625L0.078125 0.09375Z\" fill=\"#336699\" "
        "stroke=\"#314e6e\" stroke-width=\"0.7\"/>\n");
}

TEST_F(SvgCanvasTest, DrawsLinesAsOnePath) {
    canvas.Lines({{{0, 0}, {kPixel, 0}}, {{0, kPixel}, {kPixel, kPixel}, {32, 0}}}, Rgb(0xaa0001));
    canvas.Lines({}, Rgb(0xaa0001));
    ExpectDrawn("<path d=\"M0 0L1 0M0 1L1 1L0.5 0\" stroke=\"#aa0001\" stroke-width=\"1.3\"/>\n");
}

TEST_F(SvgCanvasTest, DrawsALineWithItsPen) {
    canvas.Line({{0, 0}, {kPixel, 32}}, {Rgb(0x010203), 2.5});
    canvas.Line({{0, 0}, {kPixel, 32}}, {Rgb(0x010203), 2.5, 4.0});
    ExpectDrawn(
        "<path d=\"M0 0L1 0.5\" stroke=\"#010203\" stroke-width=\"2.5\"/>\n"
        "<path d=\"M0 0L1 0.5\" stroke=\"#010203\" stroke-width=\"2.5\" stroke-dasharray=\"4\"/>\n");
}

TEST_F(SvgCanvasTest, DrawsPoints) {
    canvas.Point({kPixel, 32}, Rgb(0x0000aa));
    canvas.Dot({3 * kPixel, 2 * kPixel}, 1.5, Rgb(0x00bb00));
    ExpectDrawn(
        "<circle cx=\"1\" cy=\"0.5\" r=\"3.5\" fill=\"#0000aa\" stroke=\"#ffffff\" stroke-width=\"0.7\"/>\n"
        "<circle cx=\"3\" cy=\"2\" r=\"1.5\" fill=\"#00bb00\"/>\n");
}

TEST_F(SvgCanvasTest, WritesText) {
    canvas.Text({kPixel, 2 * kPixel}, "a < b & \"c\" > d\n", {Rgb(0x123456), 11.5});
    canvas.Text({0, 0}, "C\u00f4te", {Rgb(0x123456), 9.0, true});
    ExpectDrawn(
        "<text x=\"1\" y=\"2\" font-size=\"11.5\" fill=\"#123456\" stroke=\"#ffffff\" stroke-width=\"3.6\" "
        "paint-order=\"stroke\">a &lt; b &amp; \"c\" &gt; d?</text>\n"
        "<text x=\"0\" y=\"0\" font-size=\"9\" font-weight=\"bold\" fill=\"#123456\" stroke=\"#ffffff\" "
        "stroke-width=\"3.6\" paint-order=\"stroke\">C\u00f4te</text>\n");
}

class SvgLabel : public testing::Test {
protected:
    /// Where a label of six letters of 10 pixels goes, in a picture 100 wide.
    std::string PlaceOf(int x, int y) {
        canvas.Label({x * kPixel, y * kPixel}, "Le Pi\u00f9", {Rgb(0x123456), 10.0});
        const std::string document = canvas.Document();
        const std::size_t start = document.rfind("<text ") + 6;
        return document.substr(start, document.find(" font-size", start) - start);
    }

    SvgCanvas canvas{{100, 50}};
};

TEST_F(SvgLabel, HasItsMiddleAboveThePoint) {
    EXPECT_EQ(PlaceOf(50, 40), "x=\"50\" y=\"40\" text-anchor=\"middle\"");
    EXPECT_NE(canvas.Document().find(">Le Pi\u00f9</text>"), std::string::npos);
    EXPECT_NE(canvas.Document().find(" stroke-width=\"3.6\" paint-order=\"stroke\""), std::string::npos);
}

TEST_F(SvgLabel, StaysInside) {
    // A letter counts for 7 pixels, and the margin is 6 wide.
    EXPECT_EQ(PlaceOf(27, 40), "x=\"27\" y=\"40\" text-anchor=\"middle\"");
    EXPECT_EQ(PlaceOf(26, 40), "x=\"6\" y=\"40\"");
    EXPECT_EQ(PlaceOf(-9, 40), "x=\"6\" y=\"40\"");
    EXPECT_EQ(PlaceOf(73, 40), "x=\"73\" y=\"40\" text-anchor=\"middle\"");
    EXPECT_EQ(PlaceOf(74, 40), "x=\"94\" y=\"40\" text-anchor=\"end\"");
    EXPECT_EQ(PlaceOf(50, 15), "x=\"50\" y=\"16\" text-anchor=\"middle\"");
}

TEST_F(SvgCanvasTest, DrawsWithinAPartAndThenInTheWholeAgain) {
    canvas.Within({5, 6, 7, 8}, [this] {
        canvas.Within({1, 2, 3, 4}, [this] { canvas.Paper(); });
        canvas.Paper();
    });
    canvas.Paper();
    ExpectDrawn(
        "<svg x=\"5\" y=\"6\" width=\"7\" height=\"8\">\n"
        "<svg x=\"1\" y=\"2\" width=\"3\" height=\"4\">\n"
        "<rect width=\"3\" height=\"4\" fill=\"#ffffff\"/>\n"
        "</svg>\n"
        "<rect width=\"7\" height=\"8\" fill=\"#ffffff\"/>\n"
        "</svg>\n"
        "<rect width=\"30\" height=\"20\" fill=\"#ffffff\"/>\n");
}

}  // namespace
