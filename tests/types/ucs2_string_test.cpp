// SPDX-License-Identifier: MIT
#include "vellum/ucs2_string.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

#include "support/allocation_guard.h"

namespace {

using support::AllocationGuard;
using Vellum::UCS2String;
using Text = std::vector<unsigned short>;

static_assert(sizeof(void*) != 8 || sizeof(UCS2String) == 16);
static_assert(offsetof(UCS2String, buffer) == 0 && offsetof(UCS2String, length) == sizeof(void*));
static_assert(std::is_same_v<unsigned short, uint16_t>);
static_assert(!std::is_default_constructible_v<UCS2String>);
static_assert(!std::is_convertible_v<const unsigned short*, UCS2String>);

// A host's string that starts empty.
class EmptyString : public UCS2String {
public:
    EmptyString() = default;
};

constexpr unsigned short kAbc[] = {0x0041, 0xFFFD, 0x0100, 0};
constexpr unsigned short kEmpty[] = {0};

Text CharactersOf(const UCS2String& s, size_t count) { return Text(s.UString(), s.UString() + count); }

TEST(UCS2String, DerivedHostsCanStartEmpty) {
    const EmptyString s;
    EXPECT_EQ(s.Length(), 0u);
    EXPECT_EQ(s.UString(), nullptr);
}

TEST(UCS2String, CopiesATextWithItsTerminator) {
    const AllocationGuard guard(1);
    const UCS2String s(kAbc);
    EXPECT_EQ(guard.Requests(), 1u);
    EXPECT_EQ(guard.LastSize(), 8u);
    ASSERT_EQ(s.Length(), 3u);
    EXPECT_EQ(s.length, 3);
    EXPECT_EQ(s.UString(), s.buffer);
    EXPECT_NE(s.UString(), kAbc);
    for (size_t i = 0; i < 4; ++i)
        EXPECT_EQ(s.UString()[i], kAbc[i]);
}

TEST(UCS2String, CutsATextAt513Characters) {
    Text text;
    for (int i = 1; i <= 600; ++i)
        text.push_back(static_cast<unsigned short>(i));
    // Neither has a terminator: what lies beyond the limit is not read.
    const Text longest(text.begin(), text.begin() + 513);
    for (const Text& given : {text, longest}) {
        const AllocationGuard guard(1);
        const UCS2String s(given.data());
        EXPECT_EQ(guard.LastSize(), 514u * 2);
        ASSERT_EQ(s.Length(), 513u);
        EXPECT_EQ(s.UString()[0], 1);
        EXPECT_EQ(s.UString()[512], 513);
        EXPECT_EQ(s.UString()[513], 0);
    }
}

TEST(UCS2String, TakesATextOf512CharactersWhole) {
    Text text(512, 7);
    text.push_back(0);
    const UCS2String s(text.data());
    EXPECT_EQ(s.Length(), 512u);
    EXPECT_EQ(CharactersOf(s, 513), text);
}

TEST(UCS2String, NullMakesAnEmptyString) {
    const AllocationGuard guard(0);
    const UCS2String s(nullptr);
    EXPECT_EQ(s.Length(), 0u);
    EXPECT_EQ(s.UString(), nullptr);
    EXPECT_EQ(guard.Requests(), 0u);
}

TEST(UCS2String, AnEmptyTextMakesABlockOfTheTerminatorAlone) {
    const AllocationGuard guard(1);
    const UCS2String s(kEmpty);
    EXPECT_EQ(guard.LastSize(), 2u);
    EXPECT_EQ(s.Length(), 0u);
    ASSERT_NE(s.UString(), nullptr);
    EXPECT_EQ(s.UString()[0], 0);
}

TEST(UCS2String, ACopyHasABlockOfItsOwn) {
    const UCS2String s(kAbc);
    const AllocationGuard guard(1);
    const UCS2String copy(s);
    EXPECT_EQ(guard.LastSize(), 8u);
    ASSERT_EQ(copy.Length(), 3u);
    EXPECT_NE(copy.UString(), s.UString());
    for (size_t i = 0; i < 4; ++i)
        EXPECT_EQ(copy.UString()[i], kAbc[i]);
}

TEST(UCS2String, ACopyReadsNoFurtherThanTheLength) {
    UCS2String s(kAbc);
    s.length = 2;
    const UCS2String copy(s);
    EXPECT_EQ(CharactersOf(copy, 3), Text({0x0041, 0xFFFD, 0}));
}

TEST(UCS2String, ACopyOfAStringWithoutCharactersHasNoBlock) {
    const UCS2String fromText(kEmpty);
    const UCS2String copy(fromText);
    EXPECT_EQ(copy.UString(), nullptr);
    EXPECT_EQ(copy.Length(), 0u);
    const UCS2String copyOfNone{EmptyString()};
    EXPECT_EQ(copyOfNone.UString(), nullptr);
    EXPECT_EQ(copyOfNone.Length(), 0u);
}

TEST(UCS2String, AssignmentMakesABlockWithoutTerminator) {
    const UCS2String s(kAbc);
    EmptyString target;
    const AllocationGuard guard(1);
    UCS2String& base = target;
    UCS2String& assigned = base = s;
    EXPECT_EQ(&assigned, &target);
    EXPECT_EQ(guard.Requests(), 1u);
    EXPECT_EQ(guard.LastSize(), 6u);
    ASSERT_EQ(target.Length(), 3u);
    EXPECT_NE(target.UString(), s.UString());
    for (size_t i = 0; i < 3; ++i)
        EXPECT_EQ(target.UString()[i], kAbc[i]);
}

// The sanitizers watch the block's end.
TEST(UCS2String, ACopyOfAnAssignedStringIsTerminatedAgain) {
    const UCS2String s(kAbc);
    UCS2String assigned(kEmpty);
    assigned = s;
    const UCS2String copy(assigned);
    ASSERT_EQ(copy.Length(), 3u);
    EXPECT_EQ(CharactersOf(copy, 4), Text({0x0041, 0xFFFD, 0x0100, 0}));
}

TEST(UCS2String, AssignmentReplacesALongerText) {
    const unsigned short longer[] = {1, 2, 3, 4, 5, 0};
    UCS2String target(longer);
    target = UCS2String(kAbc);
    ASSERT_EQ(target.Length(), 3u);
    EXPECT_EQ(CharactersOf(target, 3), Text({0x0041, 0xFFFD, 0x0100}));
}

TEST(UCS2String, AssigningAnEmptyStringLeavesNoBlock) {
    UCS2String target(kAbc);
    target = UCS2String(kEmpty);
    EXPECT_EQ(target.Length(), 0u);
    EXPECT_EQ(target.UString(), nullptr);
    UCS2String other(kAbc);
    other = EmptyString();
    EXPECT_EQ(other.Length(), 0u);
    EXPECT_EQ(other.UString(), nullptr);
}

TEST(UCS2String, AssignmentToItselfDoesNothing) {
    UCS2String s(kAbc);
    const unsigned short* const block = s.UString();
    const UCS2String& same = s;
    s = same;
    EXPECT_EQ(s.UString(), block);
    EXPECT_EQ(s.Length(), 3u);
    EXPECT_EQ(s.UString()[3], 0);
}

TEST(UCS2StringMemory, AStringIsEmptyWhereMemoryRunsOut) {
    const UCS2String s(kAbc);
    UCS2String target(kAbc);
    const AllocationGuard guard(0);
    const UCS2String fromText(kAbc);
    EXPECT_EQ(fromText.Length(), 0u);
    EXPECT_EQ(fromText.UString(), nullptr);
    const UCS2String fromEmptyText(kEmpty);
    EXPECT_EQ(fromEmptyText.UString(), nullptr);
    const UCS2String copy(s);
    EXPECT_EQ(copy.Length(), 0u);
    EXPECT_EQ(copy.UString(), nullptr);
    target = s;
    EXPECT_EQ(target.Length(), 0u);
    EXPECT_EQ(target.UString(), nullptr);
    EXPECT_EQ(guard.Requests(), 4u);
}

}  // namespace
