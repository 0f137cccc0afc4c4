// SPDX-License-Identifier: MIT
#include "vellum/restricted_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <vector>

#include "support/allocation_guard.h"
#include "support/point_checks.h"

// Both compilers lay a polymorphic class out as offsetof says, which the standard only permits.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace {

using support::AllocationGuard;
using support::IsAt;
using Vellum::DblPt;
using Vellum::RestrictedTextGeom;
using Vellum::UCS2String;
using Text = std::vector<unsigned short>;

static_assert(sizeof(void*) != 8 || sizeof(RestrictedTextGeom) == 56);
static_assert(offsetof(RestrictedTextGeom, start) == 8 && offsetof(RestrictedTextGeom, width) == 24 &&
              offsetof(RestrictedTextGeom, height) == 32 && offsetof(RestrictedTextGeom, stringId) == 40 &&
              offsetof(RestrictedTextGeom, final) == 44 && offsetof(RestrictedTextGeom, string) == 48);
static_assert(std::is_base_of_v<Vellum::Shape, RestrictedTextGeom>);
static_assert(!std::is_base_of_v<Vellum::ClosedShape, RestrictedTextGeom>);
static_assert(std::is_same_v<decltype(std::declval<const RestrictedTextGeom&>().Start()), const DblPt&>);

unsigned short ab[] = {'A', 'B', 0};
unsigned short xyz[] = {'X', 'Y', 'Z', 0};
unsigned short noText[] = {0};

RestrictedTextGeom GeomOf(unsigned short* text) {
    DblPt start(1.5, -2.5);
    return {&start, 30.0, 40.0, 77, text};
}

testing::AssertionResult HoldsText(const RestrictedTextGeom& g, const Text& text) {
    const UCS2String* const string = g.String();
    if (string == nullptr) return testing::AssertionFailure() << "there is no string";
    if (string->Length() != text.size()) return testing::AssertionFailure() << "its length is " << string->Length();
    if (!std::equal(text.begin(), text.end(), string->UString())) return testing::AssertionFailure() << "another text";
    return testing::AssertionSuccess();
}

testing::AssertionResult HasFields(const RestrictedTextGeom& g, const DblPt& start, double width, double height,
                                   unsigned id, bool isFinal) {
    const auto atStart = IsAt(g.start, start.x, start.y);
    if (!atStart) return atStart;
    if (g.width == width && g.height == height && g.stringId == id && g.final == isFinal)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << g.width << " by " << g.height << ", id " << g.stringId << ", final "
                                       << g.final;
}

TEST(RestrictedText, StartsWithNothing) {
    const RestrictedTextGeom g;
    EXPECT_TRUE(HasFields(g, DblPt(0.0, 0.0), 0.0, 0.0, 0, false));
    EXPECT_EQ(g.string, nullptr);
}

TEST(RestrictedText, IsMadeOfABoxAndAFinalText) {
    DblPt start(1.5, -2.5);
    const RestrictedTextGeom g(&start, 30.0, 40.0, 0xFFFFFFF0, ab);
    start.Set(9.0, 9.0);
    EXPECT_TRUE(HasFields(g, DblPt(1.5, -2.5), 30.0, 40.0, 0xFFFFFFF0, true));
    EXPECT_TRUE(HoldsText(g, {'A', 'B'}));
    EXPECT_NE(g.String()->UString(), ab);
    EXPECT_EQ(g.String()->UString()[2], 0);
}

TEST(RestrictedText, ReadersGiveTheFields) {
    const RestrictedTextGeom g = GeomOf(ab);
    EXPECT_EQ(&g.Start(), &g.start);
    EXPECT_EQ(g.Width(), 30.0);
    EXPECT_EQ(g.Height(), 40.0);
    EXPECT_EQ(g.StringId(), 77u);
    EXPECT_TRUE(g.Final());
    EXPECT_EQ(g.String(), g.string);
}

TEST(RestrictedText, SettersStoreTheFields) {
    RestrictedTextGeom g;
    DblPt start(3.0, 4.0);
    g.SetStart(start);
    EXPECT_TRUE(HasFields(g, DblPt(3.0, 4.0), 0.0, 0.0, 0, false));
    g.SetWidth(5.0);
    EXPECT_TRUE(HasFields(g, DblPt(3.0, 4.0), 5.0, 0.0, 0, false));
    g.SetHeight(6.0);
    EXPECT_TRUE(HasFields(g, DblPt(3.0, 4.0), 5.0, 6.0, 0, false));
    g.SetStringId(7);
    EXPECT_TRUE(HasFields(g, DblPt(3.0, 4.0), 5.0, 6.0, 7, false));
    g.SetFinal(true);
    EXPECT_TRUE(HasFields(g, DblPt(3.0, 4.0), 5.0, 6.0, 7, true));
    g.SetFinal(false);
    EXPECT_FALSE(g.Final());
    EXPECT_EQ(g.string, nullptr);
}

TEST(RestrictedText, TranslateMovesOnlyTheStart) {
    RestrictedTextGeom g = GeomOf(ab);
    g.Translate(DblPt(1.0, 2.0));
    EXPECT_TRUE(HasFields(g, DblPt(2.5, -0.5), 30.0, 40.0, 77, true));
    g.Translate(g.Start());
    EXPECT_TRUE(HasFields(g, DblPt(5.0, -1.0), 30.0, 40.0, 77, true));
    EXPECT_TRUE(HoldsText(g, {'A', 'B'}));
}

TEST(RestrictedText, ATextMayBeMissingOrEmpty) {
    const RestrictedTextGeom fromNull = GeomOf(nullptr);
    EXPECT_TRUE(HoldsText(fromNull, {}));
    EXPECT_EQ(fromNull.String()->UString(), nullptr);
    const RestrictedTextGeom fromEmpty = GeomOf(noText);
    EXPECT_TRUE(HoldsText(fromEmpty, {}));
    EXPECT_NE(fromEmpty.String()->UString(), nullptr);
}

TEST(RestrictedText, ACopyHasAStringOfItsOwn) {
    RestrictedTextGeom g = GeomOf(ab);
    const RestrictedTextGeom copy(g);
    g.SetString(xyz);
    EXPECT_TRUE(HasFields(copy, DblPt(1.5, -2.5), 30.0, 40.0, 77, true));
    EXPECT_TRUE(HoldsText(copy, {'A', 'B'}));
    EXPECT_EQ(copy.String()->UString()[2], 0);
    g.SetFinal(false);
    EXPECT_FALSE(RestrictedTextGeom(g).Final());
}

TEST(RestrictedText, ACopyOfOneWithoutAStringHasNone) {
    const RestrictedTextGeom g;
    const RestrictedTextGeom copy(g);
    EXPECT_EQ(copy.string, nullptr);
}

TEST(RestrictedText, AssignmentCopiesAllIntoTheStringThatIsThere) {
    const RestrictedTextGeom source = GeomOf(xyz);
    DblPt start(8.0, 9.0);
    RestrictedTextGeom target(&start, 1.0, 2.0, 3, ab);
    target.SetFinal(false);
    const UCS2String* const string = target.string;
    RestrictedTextGeom& assigned = target = source;
    EXPECT_EQ(&assigned, &target);
    EXPECT_TRUE(HasFields(target, DblPt(1.5, -2.5), 30.0, 40.0, 77, true));
    EXPECT_TRUE(HoldsText(target, {'X', 'Y', 'Z'}));
    EXPECT_EQ(target.string, string);
    EXPECT_TRUE(HoldsText(source, {'X', 'Y', 'Z'}));
}

TEST(RestrictedText, AssignmentMakesAnUnterminatedBlock) {
    const RestrictedTextGeom source = GeomOf(xyz);
    RestrictedTextGeom target = GeomOf(ab);
    const AllocationGuard guard(1);
    target = source;
    EXPECT_EQ(guard.LastSize(), 6u);
}

TEST(RestrictedText, AssignmentMakesAStringWhereThereIsNone) {
    const RestrictedTextGeom source = GeomOf(xyz);
    RestrictedTextGeom target;
    target = source;
    EXPECT_TRUE(HasFields(target, DblPt(1.5, -2.5), 30.0, 40.0, 77, true));
    EXPECT_TRUE(HoldsText(target, {'X', 'Y', 'Z'}));
    EXPECT_NE(target.string, source.string);
}

TEST(RestrictedText, AssignmentFromOneWithoutAStringLeavesNone) {
    const RestrictedTextGeom source;
    RestrictedTextGeom target = GeomOf(ab);
    target = source;
    EXPECT_TRUE(HasFields(target, DblPt(0.0, 0.0), 0.0, 0.0, 0, false));
    EXPECT_EQ(target.string, nullptr);
    target = source;
    EXPECT_EQ(target.string, nullptr);
}

TEST(RestrictedText, AssignmentOfAnEmptyTextLeavesAnEmptyString) {
    RestrictedTextGeom target = GeomOf(ab);
    target = GeomOf(noText);
    EXPECT_TRUE(HoldsText(target, {}));
    RestrictedTextGeom other;
    other = GeomOf(noText);
    EXPECT_TRUE(HoldsText(other, {}));
}

TEST(RestrictedText, AssignmentToItselfDoesNothing) {
    RestrictedTextGeom g = GeomOf(ab);
    const UCS2String* const string = g.string;
    const RestrictedTextGeom& same = g;
    g = same;
    EXPECT_EQ(g.string, string);
    EXPECT_TRUE(HoldsText(g, {'A', 'B'}));
    EXPECT_EQ(g.String()->UString()[2], 0);
}

TEST(RestrictedText, SetStringReplacesTheText) {
    RestrictedTextGeom g = GeomOf(ab);
    g.SetString(xyz);
    EXPECT_TRUE(HoldsText(g, {'X', 'Y', 'Z'}));
    EXPECT_TRUE(HasFields(g, DblPt(1.5, -2.5), 30.0, 40.0, 77, true));
    g.SetString(noText);
    EXPECT_TRUE(HoldsText(g, {}));
    // The leak checker watches the block of the empty text.
    g.SetString(ab);
    EXPECT_TRUE(HoldsText(g, {'A', 'B'}));
    g.SetString(nullptr);
    EXPECT_TRUE(HoldsText(g, {}));
}

TEST(RestrictedText, SetStringGivesATextToOneWithout) {
    RestrictedTextGeom g;
    g.SetString(ab);
    EXPECT_TRUE(HoldsText(g, {'A', 'B'}));
    EXPECT_FALSE(g.Final());
}

TEST(RestrictedText, SetStringTakesAPieceOfItsOwnText) {
    RestrictedTextGeom g = GeomOf(xyz);
    g.SetString(g.String()->UString() + 1);
    EXPECT_TRUE(HoldsText(g, {'Y', 'Z'}));
}

TEST(RestrictedText, HandsOutATerminatedCopy) {
    const RestrictedTextGeom g = GeomOf(ab);
    unsigned short* out = nullptr;
    size_t size = 0;
    {
        const AllocationGuard guard(1);
        EXPECT_EQ(g.StringToUChar(&out), 2u);
        size = guard.LastSize();
    }
    const std::unique_ptr<unsigned short[]> block(out);
    EXPECT_EQ(size, 6u);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(Text(out, out + 3), Text({'A', 'B', 0}));
    EXPECT_NE(out, g.String()->UString());
}

TEST(RestrictedText, HandsOutTheLongestText) {
    Text longest(513, 'x');
    longest.push_back(0);
    const RestrictedTextGeom g = GeomOf(longest.data());
    unsigned short* out = nullptr;
    EXPECT_EQ(g.StringToUChar(&out), 513u);
    const std::unique_ptr<unsigned short[]> block(out);
    EXPECT_EQ(Text(out, out + 514), longest);
}

// The sanitizers watch the end of the assigned text, which has no terminator.
TEST(RestrictedText, HandsOutATerminatedCopyOfAnAssignedText) {
    RestrictedTextGeom g = GeomOf(ab);
    g = GeomOf(xyz);
    unsigned short* out = nullptr;
    EXPECT_EQ(g.StringToUChar(&out), 3u);
    const std::unique_ptr<unsigned short[]> block(out);
    EXPECT_EQ(Text(out, out + 4), Text({'X', 'Y', 'Z', 0}));
}

TEST(RestrictedText, HandsOutATerminatorWhereThereAreNoCharacters) {
    for (unsigned short* text : {noText, static_cast<unsigned short*>(nullptr)}) {
        const RestrictedTextGeom g = GeomOf(text);
        unsigned short* out = nullptr;
        EXPECT_EQ(g.StringToUChar(&out), 0u);
        const std::unique_ptr<unsigned short[]> block(out);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(block[0], 0);
    }
}

TEST(RestrictedText, HandsOutNothingWithoutAString) {
    const RestrictedTextGeom g;
    unsigned short* out = ab;
    EXPECT_EQ(g.StringToUChar(&out), 0u);
    EXPECT_EQ(out, nullptr);
}

TEST(RestrictedText, IsDestroyedAsAShape) {
    // The leak checker watches the string.
    const std::unique_ptr<Vellum::Shape> shape = std::make_unique<RestrictedTextGeom>(GeomOf(ab));
    EXPECT_NE(shape, nullptr);
}

// A string takes two allocations: the object and its characters. The rest of the shape is as it should be.
class RestrictedTextMemory : public testing::TestWithParam<size_t> {};

TEST_P(RestrictedTextMemory, AConstructorLeavesNoString) {
    for (unsigned short* text : {ab, noText}) {
        const AllocationGuard guard(GetParam());
        const RestrictedTextGeom g = GeomOf(text);
        EXPECT_EQ(g.string, nullptr);
        EXPECT_TRUE(HasFields(g, DblPt(1.5, -2.5), 30.0, 40.0, 77, true));
        EXPECT_EQ(guard.Requests(), GetParam() + 1);
    }
}

TEST_P(RestrictedTextMemory, ACopyHasNoString) {
    const RestrictedTextGeom g = GeomOf(ab);
    const AllocationGuard guard(GetParam());
    const RestrictedTextGeom copy(g);
    EXPECT_EQ(copy.string, nullptr);
    EXPECT_TRUE(HasFields(copy, DblPt(1.5, -2.5), 30.0, 40.0, 77, true));
}

TEST_P(RestrictedTextMemory, AssignmentToOneWithoutAStringLeavesNone) {
    const RestrictedTextGeom source = GeomOf(ab);
    RestrictedTextGeom target;
    const AllocationGuard guard(GetParam());
    target = source;
    EXPECT_EQ(target.string, nullptr);
    EXPECT_TRUE(HasFields(target, DblPt(1.5, -2.5), 30.0, 40.0, 77, true));
}

TEST_P(RestrictedTextMemory, SetStringLeavesNone) {
    RestrictedTextGeom g = GeomOf(ab);
    const AllocationGuard guard(GetParam());
    g.SetString(xyz);
    EXPECT_EQ(g.string, nullptr);
}

INSTANTIATE_TEST_SUITE_P(ObjectAndCharacters, RestrictedTextMemory, testing::Values(0, 1), [](const auto& allowed) {
    return allowed.param == 0 ? "TheObjectFails" : "TheCharactersFail";
});

TEST(RestrictedText, AssignmentIntoAStringThatFailsLeavesNone) {
    const RestrictedTextGeom source = GeomOf(xyz);
    RestrictedTextGeom target = GeomOf(ab);
    {
        const AllocationGuard guard(0);
        target = source;
        EXPECT_EQ(guard.Requests(), 1u);
    }
    EXPECT_EQ(target.string, nullptr);
    EXPECT_TRUE(HoldsText(source, {'X', 'Y', 'Z'}));
}

TEST(RestrictedText, StringsWithoutCharactersNeedNoneToBeCopied) {
    const RestrictedTextGeom source = GeomOf(noText);
    RestrictedTextGeom target = GeomOf(ab);
    const AllocationGuard guard(2);
    const RestrictedTextGeom copy(source);
    EXPECT_TRUE(HoldsText(copy, {}));
    const RestrictedTextGeom fromNull = GeomOf(nullptr);
    EXPECT_TRUE(HoldsText(fromNull, {}));
    target = source;
    EXPECT_TRUE(HoldsText(target, {}));
    EXPECT_EQ(guard.Requests(), 2u);
}

TEST(RestrictedText, NothingIsHandedOutWhereMemoryRunsOut) {
    const RestrictedTextGeom g = GeomOf(ab);
    unsigned short* out = ab;
    const AllocationGuard guard(0);
    EXPECT_EQ(g.StringToUChar(&out), 0u);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(guard.Requests(), 1u);
}

}  // namespace
