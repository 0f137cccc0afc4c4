// SPDX-License-Identifier: MIT
#include "vellum/entity_id.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "support/allocation_guard.h"

namespace {

using support::AllocationGuard;
using Vellum::EntityID;
using Vellum::EntityIDIter;
using Parts = std::vector<int>;

static_assert(sizeof(void*) != 8 || (sizeof(EntityID) == 16 && sizeof(EntityIDIter) == 16));
static_assert(offsetof(EntityID, data) == 0 && offsetof(EntityID, iterator) == sizeof(void*));
static_assert(sizeof(EntityID::Data) == 28 && offsetof(EntityID::Data, count) == 0 &&
              offsetof(EntityID::Data, sheetId) == 4 && offsetof(EntityID::Data, parts) == 8);
static_assert(offsetof(EntityIDIter, owner) == 0 && offsetof(EntityIDIter, position) == sizeof(void*));
static_assert(!std::is_convertible_v<int, EntityID> && !std::is_convertible_v<const char*, EntityID>);
static_assert(!std::is_default_constructible_v<EntityIDIter> && !std::is_copy_constructible_v<EntityIDIter>);
static_assert(!std::is_constructible_v<EntityIDIter, EntityID*> && !std::is_destructible_v<EntityIDIter>);

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();

Parts PartsOf(const EntityID& id) {
    Parts parts;
    for (int i = 0; i < id.Length(); ++i)
        parts.push_back(id.Element(i));
    return parts;
}

// With the parts that lie beyond the count.
Parts AllPartsOf(const EntityID& id) { return Parts(id.data->parts, id.data->parts + 5); }

std::string TextOf(const EntityID& id, bool hex) {
    const std::unique_ptr<char[]> text(id.GetStringID(hex));
    return text ? text.get() : "null";
}

EntityID WithoutABlock() {
    const AllocationGuard guard(0);
    return EntityID();
}

TEST(EntityID, StartsWithoutParts) {
    const EntityID id;
    EXPECT_EQ(id.Length(), 0);
    EXPECT_EQ(id.SheetID(), 0);
    EXPECT_EQ(AllPartsOf(id), Parts({0, 0, 0, 0, 0}));
    EXPECT_EQ(id.iterator, nullptr);
}

TEST(EntityID, IsMadeOfOneToFiveParts) {
    const EntityID one(7);
    const EntityID two(7, -8);
    const EntityID three(7, -8, 9);
    const EntityID four(7, -8, 9, 10);
    const EntityID five(7, -8, 9, 10, kLeast);
    EXPECT_EQ(PartsOf(one), Parts({7}));
    EXPECT_EQ(PartsOf(two), Parts({7, -8}));
    EXPECT_EQ(PartsOf(three), Parts({7, -8, 9}));
    EXPECT_EQ(PartsOf(four), Parts({7, -8, 9, 10}));
    EXPECT_EQ(PartsOf(five), Parts({7, -8, 9, 10, kLeast}));
    for (const EntityID* id : {&one, &two, &three, &four, &five}) {
        EXPECT_EQ(id->SheetID(), 0);
        EXPECT_EQ(id->iterator, nullptr);
    }
    EXPECT_EQ(AllPartsOf(two), Parts({7, -8, 0, 0, 0}));
}

TEST(EntityID, LiesInMemoryAsCountSheetAndParts) {
    EntityID id(1, 2, 3);
    id.AssignSheetID(9);
    EXPECT_EQ(id.data->count, 3);
    EXPECT_EQ(id.data->sheetId, 9);
    EXPECT_EQ(AllPartsOf(id), Parts({1, 2, 3, 0, 0}));
}

TEST(EntityID, ACopyHasABlockOfItsOwnAndNoIterator) {
    EntityID id(4, 5);
    id.AssignSheetID(6);
    ASSERT_NE(id.GetIterator(), nullptr);
    const EntityID copy(id);
    EXPECT_NE(copy.data, id.data);
    EXPECT_EQ(copy.iterator, nullptr);
    EXPECT_EQ(PartsOf(copy), Parts({4, 5}));
    EXPECT_EQ(copy.SheetID(), 6);
    id.Assign(1);
    EXPECT_EQ(PartsOf(copy), Parts({4, 5}));
}

TEST(EntityID, AssignmentKeepsBlockAndIterator) {
    EntityID source(4, 5);
    source.AssignSheetID(6);
    ASSERT_NE(source.GetIterator(), nullptr);
    EntityID target(1, 2, 3);
    target.AssignSheetID(8);
    EntityIDIter* const iterator = target.GetIterator();
    iterator->Next();
    const EntityID::Data* const block = target.data;
    EntityID& assigned = target = source;
    EXPECT_EQ(&assigned, &target);
    EXPECT_EQ(target.data, block);
    EXPECT_EQ(target.iterator, iterator);
    EXPECT_EQ(iterator->WhichIdx(), 1);
    EXPECT_EQ(iterator->Element(), 5);
    EXPECT_EQ(PartsOf(target), Parts({4, 5}));
    EXPECT_EQ(target.SheetID(), 6);
}

TEST(EntityID, AssignmentToItselfChangesNothing) {
    EntityID id(4, 5);
    id.AssignSheetID(6);
    const EntityID& same = id;
    id = same;
    EXPECT_EQ(PartsOf(id), Parts({4, 5}));
    EXPECT_EQ(id.SheetID(), 6);
}

TEST(EntityIDText, TheCommasDecideTheCount) {
    EXPECT_EQ(PartsOf(EntityID("12")), Parts({12}));
    EXPECT_EQ(PartsOf(EntityID("12,7")), Parts({12, 7}));
    EXPECT_EQ(PartsOf(EntityID("12,7,3")), Parts({12, 7, 3}));
    EXPECT_EQ(PartsOf(EntityID("12,7,3,-4")), Parts({12, 7, 3, -4}));
    EXPECT_EQ(PartsOf(EntityID("12,7,3,-4,5")), Parts({12, 7, 3, -4, 5}));
    EXPECT_EQ(EntityID("12,7,3").SheetID(), 0);
    EXPECT_EQ(EntityID("12,7,3").iterator, nullptr);
}

TEST(EntityIDText, WhatFollowsTheFifthNumberIsIgnored) {
    EXPECT_EQ(PartsOf(EntityID("1,2,3,4,5,6,7")), Parts({1, 2, 3, 4, 5}));
    EXPECT_EQ(PartsOf(EntityID("1,2,3,4,5 and more")), Parts({1, 2, 3, 4, 5}));
}

TEST(EntityIDText, AnEmptyTextGivesOnePart) {
    EXPECT_EQ(PartsOf(EntityID("")), Parts({0}));
    EXPECT_EQ(PartsOf(EntityID(static_cast<const char*>(nullptr))), Parts({0}));
}

TEST(EntityIDText, NumbersMayHaveWhiteSpaceBeforeThemAndASign) {
    EXPECT_EQ(PartsOf(EntityID(" 1,\t-2,\n+3")), Parts({1, -2, 3}));
    EXPECT_EQ(PartsOf(EntityID("007,-0")), Parts({7, 0}));
}

TEST(EntityIDText, ReadingEndsWhereANumberOrACommaIsMissing) {
    EXPECT_EQ(PartsOf(EntityID("abc")), Parts({0}));
    EXPECT_EQ(PartsOf(EntityID(",")), Parts({0, 0}));
    EXPECT_EQ(PartsOf(EntityID("1,")), Parts({1, 0}));
    EXPECT_EQ(PartsOf(EntityID(",2")), Parts({0, 0}));
    EXPECT_EQ(PartsOf(EntityID("1,,3")), Parts({1, 0, 0}));
    EXPECT_EQ(PartsOf(EntityID("1 ,2")), Parts({1, 0}));
    EXPECT_EQ(PartsOf(EntityID("1;2,3")), Parts({1, 0}));
    EXPECT_EQ(PartsOf(EntityID("1,x,3,4")), Parts({1, 0, 0, 0}));
    EXPECT_EQ(PartsOf(EntityID("1,- 2,3")), Parts({1, 0, 0}));
    EXPECT_EQ(PartsOf(EntityID(",,,,,,")), Parts({0, 0, 0, 0, 0}));
}

TEST(EntityIDText, HexadecimalTextIsNotRead) {
    EXPECT_EQ(PartsOf(EntityID("C,7,3")), Parts({0, 0, 0}));
    EXPECT_EQ(PartsOf(EntityID("0x10,7")), Parts({0, 0}));
    EXPECT_EQ(PartsOf(EntityID("1F,7")), Parts({1, 0}));
}

TEST(EntityIDText, OfALargeNumberTheLowBitsCount) {
    EXPECT_EQ(PartsOf(EntityID("2147483647,-2147483648")), Parts({kMost, kLeast}));
    EXPECT_EQ(PartsOf(EntityID("2147483648,-2147483649")), Parts({kLeast, kMost}));
    EXPECT_EQ(PartsOf(EntityID("4294967295,4294967303,-4294967297")), Parts({-1, 7, -1}));
    EXPECT_EQ(PartsOf(EntityID("99999999999999999999,-99999999999999999999,3")), Parts({-1, 0, 3}));
}

TEST(EntityID, TextReadsBack) {
    for (const char* text : {"0", "12,7", "12,7,3", "-1,2,-3,4", "2147483647,-2147483648,0,1,-1"})
        EXPECT_EQ(TextOf(EntityID(text), false), text);
}

TEST(EntityID, TextIsDecimalOrHexadecimal) {
    EXPECT_EQ(TextOf(EntityID("12,7,3"), false), "12,7,3");
    EXPECT_EQ(TextOf(EntityID("12,7,3"), true), "C,7,3");
    EXPECT_EQ(TextOf(EntityID(171), true), "AB");
    EXPECT_EQ(TextOf(EntityID(-1, kLeast, 255, 0, 16), true), "FFFFFFFF,80000000,FF,0,10");
    EXPECT_EQ(TextOf(EntityID(1, 2, 3, 4), false), "1,2,3,4");
    EXPECT_EQ(TextOf(EntityID(kLeast, kLeast, kLeast, kLeast, kLeast), false),
              "-2147483648,-2147483648,-2147483648,-2147483648,-2147483648");
}

TEST(EntityID, WithoutPartsThereIsNoText) {
    EXPECT_EQ(EntityID().GetStringID(false), nullptr);
    EXPECT_EQ(EntityID().GetStringID(true), nullptr);
}

TEST(EntityID, TextHasTwentyCharactersForEachPart) {
    const EntityID id(1, 2, 3);
    size_t size = 0;
    std::unique_ptr<char[]> text;
    {
        const AllocationGuard guard(1);
        text.reset(id.GetStringID(false));
        size = guard.LastSize();
    }
    EXPECT_EQ(size, 60u);
    ASSERT_NE(text, nullptr);
}

TEST(EntityID, ComparesCountAndParts) {
    const EntityID id(1, 2);
    EXPECT_TRUE(id == EntityID(1, 2));
    EXPECT_FALSE(id != EntityID(1, 2));
    for (const EntityID& other : {EntityID(1, 3), EntityID(3, 2), EntityID(1), EntityID(1, 2, 0), EntityID()}) {
        EXPECT_FALSE(id == other);
        EXPECT_TRUE(id != other);
    }
    EXPECT_TRUE(EntityID() == EntityID());
}

TEST(EntityID, ComparisonLeavesOutSheetsAndPartsBeyondTheCount) {
    EntityID a(1, 2, 3);
    EntityID b(1, 2, 4);
    a.AssignSheetID(5);
    b.AssignSheetID(6);
    EXPECT_FALSE(a == b);
    EXPECT_EQ(a.PopLast(), 3);
    EXPECT_EQ(b.PopLast(), 4);
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a != b);
}

TEST(EntityID, AssignReplacesThePartsAndKeepsTheSheet) {
    EntityID id(9, 9, 9, 9, 9);
    id.AssignSheetID(3);
    id.Assign(1);
    EXPECT_EQ(PartsOf(id), Parts({1}));
    EXPECT_EQ(AllPartsOf(id), Parts({1, 9, 9, 9, 9}));
    id.Assign(1, 2);
    EXPECT_EQ(PartsOf(id), Parts({1, 2}));
    id.Assign(1, 2, 3);
    EXPECT_EQ(PartsOf(id), Parts({1, 2, 3}));
    id.Assign(1, 2, 3, 4);
    EXPECT_EQ(PartsOf(id), Parts({1, 2, 3, 4}));
    id.Assign(1, 2, 3, 4, 5);
    EXPECT_EQ(PartsOf(id), Parts({1, 2, 3, 4, 5}));
    EXPECT_EQ(id.SheetID(), 3);
}

TEST(EntityID, AddAppendsUpToFiveParts) {
    EntityID id;
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(id.Add(10 * i), i);
    EXPECT_EQ(id.Add(60), 0);
    EXPECT_EQ(id.Length(), 5);
    EXPECT_EQ(PartsOf(id), Parts({10, 20, 30, 40, 50}));
}

TEST(EntityID, PushFirstPutsUpToFivePartsInFront) {
    EntityID id;
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(id.PushFirst(10 * i), i);
    EXPECT_EQ(id.PushFirst(60), 0);
    EXPECT_EQ(id.Length(), 5);
    EXPECT_EQ(PartsOf(id), Parts({50, 40, 30, 20, 10}));
}

TEST(EntityID, PopFirstTakesTheFirstPart) {
    EntityID id(4, 5, 6);
    EXPECT_EQ(id.PopFirst(), 4);
    EXPECT_EQ(PartsOf(id), Parts({5, 6}));
    EXPECT_EQ(id.PopFirst(), 5);
    EXPECT_EQ(id.PopFirst(), 6);
    EXPECT_EQ(id.Length(), 0);
    EXPECT_EQ(id.PopFirst(), 0);
    EXPECT_EQ(id.Length(), 0);
}

TEST(EntityID, PopFirstTakesTheFirstOfFiveParts) {
    EntityID id(1, 2, 3, 4, 5);
    EXPECT_EQ(id.PopFirst(), 1);
    EXPECT_EQ(PartsOf(id), Parts({2, 3, 4, 5}));
}

TEST(EntityID, PopFirstRefusesACountThatNoIdentifierHas) {
    EntityID id(1, 2, 3, 4, 5);
    id.data->count = 6;
    EXPECT_EQ(id.PopFirst(), 0);
    EXPECT_EQ(id.data->count, 6);
    EXPECT_EQ(AllPartsOf(id), Parts({1, 2, 3, 4, 5}));
}

TEST(EntityID, PopLastTakesTheLastPart) {
    EntityID id(4, 5, 6, 7, 8);
    EXPECT_EQ(id.PopLast(), 8);
    EXPECT_EQ(PartsOf(id), Parts({4, 5, 6, 7}));
    EXPECT_EQ(id.PopLast(), 7);
    EXPECT_EQ(id.PopLast(), 6);
    EXPECT_EQ(id.PopLast(), 5);
    EXPECT_EQ(id.PopLast(), 4);
    EXPECT_EQ(id.Length(), 0);
    EXPECT_EQ(id.PopLast(), 0);
    EXPECT_EQ(id.Length(), 0);
}

TEST(EntityID, ClearForgetsTheCountAlone) {
    EntityID id(4, 5);
    id.AssignSheetID(6);
    id.Clear();
    EXPECT_EQ(id.Length(), 0);
    EXPECT_EQ(id.SheetID(), 6);
    EXPECT_EQ(AllPartsOf(id), Parts({4, 5, 0, 0, 0}));
}

TEST(EntityID, KnowsItsSheet) {
    EntityID id(1);
    id.AssignSheetID(-3);
    EXPECT_EQ(id.SheetID(), -3);
    EXPECT_TRUE(id.HasSheetID(-3));
    EXPECT_FALSE(id.HasSheetID(3));
    EXPECT_EQ(PartsOf(id), Parts({1}));
}

TEST(EntityID, BuildingKeepsTheSheet) {
    EntityID id(1, 2, 3, 4, 5);
    id.AssignSheetID(9);
    id.PopFirst();
    EXPECT_EQ(id.SheetID(), 9);
    id.Add(6);
    EXPECT_EQ(id.SheetID(), 9);
    id.PopLast();
    EXPECT_EQ(id.SheetID(), 9);
    id.PushFirst(1);
    EXPECT_EQ(id.SheetID(), 9);
}

TEST(EntityID, ReadsPartsByPlace) {
    const EntityID id(4, 5, 6);
    EXPECT_EQ(id.Element(0), 4);
    EXPECT_EQ(id.Element(2), 6);
    EXPECT_EQ(id.Element(3), 0);
    EXPECT_EQ(id.Element(-1), 0);
    EXPECT_EQ(id.Element(kMost), 0);
    EXPECT_EQ(id.First(), 4);
    EXPECT_EQ(id.Last(), 6);
    EXPECT_EQ(EntityID().First(), 0);
    EXPECT_EQ(EntityID().Last(), 0);
}

TEST(EntityID, PartsBeyondTheCountReadAsNone) {
    EntityID id(4, 5);
    EXPECT_EQ(id.PopLast(), 5);
    EXPECT_EQ(id.Element(1), 0);
    id.Clear();
    EXPECT_EQ(id.First(), 0);
    EXPECT_EQ(id.Last(), 0);
}

TEST(EntityID, IsATupleFromTwoPartsOn) {
    EXPECT_FALSE(EntityID().IsTuple());
    EXPECT_FALSE(EntityID(1).IsTuple());
    EXPECT_TRUE(EntityID(1, 2).IsTuple());
    EXPECT_TRUE(EntityID(1, 2, 3, 4, 5).IsTuple());
    EXPECT_EQ(EntityID().MaxLength(), 5);
}

TEST(EntityID, GivesItsPartsAsBytes) {
    const EntityID id(0x01020304, -1, 7);
    unsigned length = 99;
    const unsigned char* const bytes = id.ByteStream(length);
    EXPECT_EQ(length, 12u);
    EXPECT_EQ(static_cast<const void*>(bytes), id.data->parts);
    const int32_t expected[] = {0x01020304, -1, 7};
    EXPECT_EQ(std::memcmp(bytes, expected, 12), 0);
    EXPECT_NE(EntityID().ByteStream(length), nullptr);
    EXPECT_EQ(length, 0u);
}

TEST(EntityID, SplitsAPackedIdentifier) {
    const EntityID id(77, 78);
    EXPECT_EQ(id.ECADObjId(0x06000005), 4);
    EXPECT_EQ(id.ECADUniqueId(0x06000005), 5);
    EXPECT_EQ(id.ECADObjId(0x01FFFFFF), 0);
    EXPECT_EQ(id.ECADUniqueId(0x01FFFFFF), 0x01FFFFFF);
    EXPECT_EQ(id.ECADObjId(0x02000000), 1);
    EXPECT_EQ(id.ECADUniqueId(0x02000000), 0);
    EXPECT_EQ(id.ECADObjId(31 << 25), 0x40000000);
    EXPECT_EQ(id.ECADObjId(32 << 25), kLeast);
    EXPECT_EQ(id.ECADObjId(33 << 25), 0);
    EXPECT_EQ(id.ECADObjId(63 << 25), 0);
}

TEST(EntityID, ThePackedTypeLeavesOutTheSignBit) {
    EXPECT_EQ(EntityID().ECADObjId(kLeast), 0);
    EXPECT_EQ(EntityID().ECADObjId(kLeast | 0x06000005), 4);
    EXPECT_EQ(EntityID().ECADUniqueId(kLeast | 0x06000005), 5);
    EXPECT_EQ(EntityID().ECADUniqueId(-1), 0x01FFFFFF);
}

TEST(EntityIDIter, VisitsThePartsInOrder) {
    EntityID id(1, 2);
    EntityIDIter* const it = id.GetIterator();
    ASSERT_NE(it, nullptr);
    EXPECT_EQ(it->owner, &id);
    EXPECT_FALSE(it->Done());
    EXPECT_EQ(it->WhichIdx(), 0);
    EXPECT_EQ(it->Element(), 1);
    it->Next();
    EXPECT_FALSE(it->Done());
    EXPECT_EQ(it->WhichIdx(), 1);
    EXPECT_EQ(it->Element(), 2);
    it->Next();
    EXPECT_TRUE(it->Done());
    EXPECT_EQ(it->WhichIdx(), 2);
    EXPECT_EQ(it->Element(), 0);
    it->Next();
    EXPECT_EQ(it->WhichIdx(), 2);
    it->Reset();
    EXPECT_EQ(it->WhichIdx(), 0);
    EXPECT_EQ(it->Element(), 1);
}

TEST(EntityIDIter, IsMadeOnceAndResetByEveryCall) {
    EntityID id(1, 2);
    EntityIDIter* const it = id.GetIterator();
    EXPECT_EQ(id.iterator, it);
    it->Next();
    EXPECT_EQ(id.GetIterator(), it);
    EXPECT_EQ(it->WhichIdx(), 0);
}

TEST(EntityIDIter, FollowsChangesOfItsOwner) {
    EntityID id;
    EntityIDIter* const it = id.GetIterator();
    EXPECT_TRUE(it->Done());
    EXPECT_EQ(it->Element(), 0);
    id.Add(7);
    EXPECT_FALSE(it->Done());
    EXPECT_EQ(it->Element(), 7);
    it->Next();
    id.Clear();
    EXPECT_TRUE(it->Done());
    it->position = -1;
    EXPECT_FALSE(it->Done());
    EXPECT_EQ(it->Element(), 0);
}

TEST(EntityIDIter, AdvancesFromBeforeTheFirstPart) {
    EntityID id(4, 5);
    EntityIDIter* const it = id.GetIterator();
    it->position = -1;
    it->Next();
    EXPECT_EQ(it->WhichIdx(), 0);
}

TEST(EntityIDIter, KeepsAnAssignedOwnerWhenItIsReset) {
    EntityID a(1, 2);
    EntityID b(4, 5);
    *a.GetIterator() = *b.GetIterator();
    EXPECT_EQ(a.GetIterator()->owner, &b);
}

TEST(EntityIDIter, AssignmentTakesOverOwnerAndPosition) {
    EntityID a(1, 2, 3);
    EntityID b(4, 5, 6);
    EntityIDIter* const itA = a.GetIterator();
    EntityIDIter* const itB = b.GetIterator();
    itB->Next();
    itB->Next();
    EntityIDIter& assigned = *itA = *itB;
    EXPECT_EQ(&assigned, itA);
    EXPECT_EQ(itA->owner, &b);
    EXPECT_EQ(itA->WhichIdx(), 2);
    EXPECT_EQ(itA->Element(), 6);
}

TEST(EntityIDMemory, NoConstructorThrowsWhereMemoryRunsOut) {
    const EntityID other(1, 2);
    const AllocationGuard guard(0);
    EXPECT_EQ(EntityID().data, nullptr);
    EXPECT_EQ(EntityID(1).data, nullptr);
    EXPECT_EQ(EntityID(1, 2).data, nullptr);
    EXPECT_EQ(EntityID(1, 2, 3).data, nullptr);
    EXPECT_EQ(EntityID(1, 2, 3, 4).data, nullptr);
    EXPECT_EQ(EntityID(1, 2, 3, 4, 5).data, nullptr);
    EXPECT_EQ(EntityID("1,2").data, nullptr);
    EXPECT_EQ(EntityID(other).data, nullptr);
    EXPECT_EQ(guard.Requests(), 8u);
}

TEST(EntityIDMemory, WithoutABlockItAnswersAsAnEmptyOne) {
    const EntityID id = WithoutABlock();
    ASSERT_EQ(id.data, nullptr);
    EXPECT_EQ(id.Length(), 0);
    EXPECT_EQ(id.SheetID(), 0);
    EXPECT_TRUE(id.HasSheetID(0));
    EXPECT_FALSE(id.HasSheetID(1));
    EXPECT_FALSE(id.IsTuple());
    EXPECT_EQ(id.MaxLength(), 5);
    EXPECT_EQ(id.Element(0), 0);
    EXPECT_EQ(id.First(), 0);
    EXPECT_EQ(id.Last(), 0);
    EXPECT_EQ(id.GetStringID(false), nullptr);
    EXPECT_EQ(id.ECADObjId(0x06000005), 4);
    unsigned length = 99;
    EXPECT_EQ(id.ByteStream(length), nullptr);
    EXPECT_EQ(length, 0u);
    EXPECT_TRUE(id == EntityID());
    EXPECT_TRUE(EntityID() == id);
    EXPECT_TRUE(id == WithoutABlock());
    EXPECT_TRUE(id != EntityID(1));
    EXPECT_TRUE(EntityID(1) != id);
}

TEST(EntityIDMemory, WithoutABlockItRefusesWhatItCannotHold) {
    EntityID id = WithoutABlock();
    id.Assign(1);
    id.Assign(1, 2);
    id.Assign(1, 2, 3);
    id.Assign(1, 2, 3, 4);
    id.Assign(1, 2, 3, 4, 5);
    EXPECT_EQ(id.Add(1), 0);
    EXPECT_EQ(id.PushFirst(1), 0);
    EXPECT_EQ(id.PopFirst(), 0);
    EXPECT_EQ(id.PopLast(), 0);
    id.Clear();
    id.AssignSheetID(3);
    EXPECT_EQ(id.Length(), 0);
    EXPECT_EQ(id.SheetID(), 0);
    EXPECT_EQ(id.data, nullptr);
}

TEST(EntityIDMemory, CopiesOfOneWithoutABlockAreEmpty) {
    const EntityID without = WithoutABlock();
    const EntityID copy(without);
    ASSERT_NE(copy.data, nullptr);
    EXPECT_EQ(copy.Length(), 0);
    EntityID target(1, 2);
    target.AssignSheetID(3);
    target = without;
    EXPECT_EQ(target.Length(), 0);
    EXPECT_EQ(target.SheetID(), 0);
    EntityID blockless = WithoutABlock();
    blockless = EntityID(1, 2);
    EXPECT_EQ(blockless.Length(), 0);
    blockless = without;
    EXPECT_EQ(blockless.data, nullptr);
}

TEST(EntityIDMemory, WithoutABlockThereIsNothingToIterate) {
    EntityID id = WithoutABlock();
    EntityIDIter* const it = id.GetIterator();
    ASSERT_NE(it, nullptr);
    EXPECT_TRUE(it->Done());
    EXPECT_EQ(it->Element(), 0);
    it->Next();
    EXPECT_EQ(it->WhichIdx(), 0);
}

TEST(EntityIDMemory, TextAndIteratorAreNullWhereMemoryRunsOut) {
    EntityID id(1, 2);
    {
        const AllocationGuard guard(0);
        EXPECT_EQ(id.GetStringID(false), nullptr);
        EXPECT_EQ(id.GetIterator(), nullptr);
        EXPECT_EQ(guard.Requests(), 2u);
    }
    EXPECT_NE(id.GetIterator(), nullptr);
}

}  // namespace
