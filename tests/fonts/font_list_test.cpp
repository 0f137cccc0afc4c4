// SPDX-License-Identifier: MIT
#include "vellum/font_list.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/allocation_guard.h"

namespace {

using support::AllocationGuard;
using Vellum::FontList;
using Names = std::vector<std::string>;

static_assert(sizeof(void*) != 8 || sizeof(FontList) == 24);
static_assert(offsetof(FontList, capacity) == 0 && offsetof(FontList, names) == 8 && offsetof(FontList, count) == 16);

// The interface takes names and lists that it does not write to without saying so.
void Add(FontList& list, std::string name) { list.AddFont(name.data()); }

void AddAll(FontList& list, Names names, int n) {
    std::vector<char*> pointers;
    for (std::string& name : names)
        pointers.push_back(name.data());
    list.AddList(pointers.data(), n);
}

Names NamesOf(const FontList& list) { return Names(list.GetList(), list.GetList() + list.GetSize()); }

FontList ListOf(const Names& names) {
    FontList list;
    AddAll(list, names, static_cast<int>(names.size()));
    return list;
}

// A list whose array is of another size than usual.
class SmallList : public FontList {
public:
    explicit SmallList(int32_t size) {
        _DeleteList();
        capacity = size;
        names = new char*[static_cast<size_t>(size)];
    }
};

TEST(FontList, StartsEmptyWithRoomForAHundred) {
    const AllocationGuard guard(1);
    const FontList list;
    EXPECT_EQ(list.capacity, 100);
    EXPECT_EQ(list.count, 0);
    EXPECT_EQ(list.GetSize(), 0);
    EXPECT_NE(list.names, nullptr);
    EXPECT_EQ(list.GetList(), list.names);
    EXPECT_EQ(guard.Requests(), 1u);
    EXPECT_EQ(guard.LastSize(), 100 * sizeof(char*));
}

TEST(FontList, KeepsCopiesInTheOrderOfArrival) {
    FontList list;
    std::string name = "Times";
    list.AddFont(name.data());
    name = "Arial";
    list.AddFont(name.data());
    name = "Zapf";
    EXPECT_EQ(NamesOf(list), Names({"Times", "Arial"}));
    EXPECT_EQ(list.GetSize(), 2);
}

TEST(FontList, IgnoresNullAndTheNamesItHolds) {
    FontList list;
    Add(list, "Times");
    Add(list, "Arial");
    Add(list, "Times");
    Add(list, "Arial");
    list.AddFont(nullptr);
    list.AddFont(list.names[1]);
    EXPECT_EQ(NamesOf(list), Names({"Times", "Arial"}));
}

TEST(FontList, NamesDifferByCaseAndByLength) {
    FontList list;
    for (const char* name : {"Arial", "arial", "ARIAL", "Arial ", "Aria", ""})
        Add(list, name);
    EXPECT_EQ(NamesOf(list), Names({"Arial", "arial", "ARIAL", "Arial ", "Aria", ""}));
    Add(list, "");
    EXPECT_EQ(list.GetSize(), 6);
}

TEST(FontList, LongNamesAreComparedAndCopiedWhole) {
    const std::string longName(300, 'x');
    const FontList list = ListOf({longName + "a", longName + "b", longName + "a"});
    EXPECT_EQ(NamesOf(list), Names({longName + "a", longName + "b"}));
}

TEST(FontList, DropsThe101stName) {
    FontList list;
    for (int i = 1; i <= 101; ++i)
        Add(list, "Font " + std::to_string(i));
    EXPECT_EQ(list.GetSize(), 100);
    EXPECT_STREQ(list.GetList()[0], "Font 1");
    EXPECT_STREQ(list.GetList()[99], "Font 100");
    EXPECT_EQ(list.capacity, 100);
}

TEST(FontList, AddListTakesTheFirstNames) {
    FontList list;
    AddAll(list, {"C", "A", "B"}, 2);
    EXPECT_EQ(NamesOf(list), Names({"C", "A"}));
    AddAll(list, {"B"}, 0);
    AddAll(list, {"B"}, -1);
    list.AddList(nullptr, 0);
    EXPECT_EQ(NamesOf(list), Names({"C", "A"}));
}

TEST(FontList, AddListSkipsNullAndDuplicates) {
    FontList list;
    Add(list, "A");
    std::string a = "A";
    std::string b = "B";
    std::string c = "C";
    char* names[] = {b.data(), nullptr, a.data(), b.data(), c.data()};
    list.AddList(names, 5);
    EXPECT_EQ(NamesOf(list), Names({"A", "B", "C"}));
}

TEST(FontList, AddListStopsAtTheCapacity) {
    SmallList list(2);
    AddAll(list, {"A", "A", "B", "C", "D"}, 5);
    EXPECT_EQ(NamesOf(list), Names({"A", "B"}));
}

TEST(FontList, AddListTakesAnotherList) {
    FontList other = ListOf({"B", "C", "A"});
    FontList list = ListOf({"C", "D"});
    list.AddList(&other);
    EXPECT_EQ(NamesOf(list), Names({"C", "D", "B", "A"}));
    EXPECT_EQ(NamesOf(other), Names({"B", "C", "A"}));
    list.AddList(&list);
    EXPECT_EQ(list.GetSize(), 4);
}

TEST(FontList, ACopyHoldsTheSameNamesOfItsOwn) {
    FontList list = ListOf({"B", "C", "A"});
    const FontList copy(list);
    EXPECT_NE(copy.names, list.names);
    EXPECT_NE(copy.names[0], list.names[0]);
    Add(list, "D");
    list.names[0][0] = 'X';
    EXPECT_EQ(NamesOf(copy), Names({"B", "C", "A"}));
    EXPECT_EQ(copy.capacity, 100);
}

TEST(FontList, ACopyHasTheCapacityOfTheOther) {
    SmallList list(2);
    AddAll(list, {"A", "B"}, 2);
    const AllocationGuard guard(3);
    FontList copy(list);
    EXPECT_EQ(guard.Requests(), 3u);
    EXPECT_EQ(copy.capacity, 2);
    EXPECT_EQ(copy.GetSize(), 2);
    char name[] = "C";
    copy.AddFont(name);
    EXPECT_EQ(copy.GetSize(), 2);
}

TEST(FontList, AssignmentEmptiesTheListAndReleasesNoName) {
    const FontList source = ListOf({"A", "B"});
    FontList target = ListOf({"X", "Y"});
    char** const array = target.names;
    char* const former[] = {array[0], array[1]};
    FontList& assigned = target = source;
    EXPECT_EQ(&assigned, &target);
    EXPECT_EQ(target.GetSize(), 0);
    EXPECT_EQ(target.capacity, 100);
    EXPECT_EQ(target.names, array);
    EXPECT_EQ(source.GetSize(), 2);
    EXPECT_STREQ(former[0], "X");
    EXPECT_STREQ(former[1], "Y");
    delete[] former[0];
    delete[] former[1];
    Add(target, "Y");
    EXPECT_EQ(NamesOf(target), Names({"Y"}));
}

TEST(FontList, AssignmentTakesOverAnotherCapacity) {
    SmallList source(2);
    AddAll(source, {"A", "B"}, 2);
    // The leak checker watches the names and the array.
    FontList target = ListOf({"X", "Y", "Z"});
    {
        const AllocationGuard guard(1);
        target = source;
        EXPECT_EQ(guard.Requests(), 1u);
        EXPECT_EQ(guard.LastSize(), 2 * sizeof(char*));
    }
    EXPECT_EQ(target.GetSize(), 0);
    EXPECT_EQ(target.capacity, 2);
    EXPECT_NE(target.names, source.names);
    AddAll(target, {"X", "Y", "Z"}, 3);
    EXPECT_EQ(NamesOf(target), Names({"X", "Y"}));
}

TEST(FontList, AssignmentToItselfKeepsTheNames) {
    FontList list = ListOf({"A", "B"});
    const FontList& same = list;
    list = same;
    EXPECT_EQ(NamesOf(list), Names({"A", "B"}));
}

TEST(FontList, DeleteListLeavesTheFields) {
    FontList list = ListOf({"A", "B"});
    char** const array = list.names;
    list._DeleteList();
    EXPECT_EQ(list.names, array);
    EXPECT_EQ(list.count, 2);
    EXPECT_EQ(list.capacity, 100);
    // Nothing is left for the destructor.
    list.names = nullptr;
    list.count = 0;
}

TEST(FontListMemory, AListWithoutAnArrayTakesNoName) {
    char name[] = "Arial";
    char* names[] = {name};
    const AllocationGuard guard(0);
    FontList list;
    EXPECT_EQ(list.names, nullptr);
    EXPECT_EQ(list.capacity, 100);
    EXPECT_EQ(guard.Requests(), 1u);
    list.AddFont(name);
    list.AddList(names, 1);
    EXPECT_EQ(list.GetSize(), 0);
    EXPECT_EQ(guard.Requests(), 1u);
    FontList copy(list);
    EXPECT_EQ(copy.GetSize(), 0);
    copy.AddList(&list);
    copy._DeleteList();
}

TEST(FontListMemory, ANegativeCapacityIsNoRoomAtAll) {
    FontList list;
    list.capacity = -1;
    FontList copy(list);
    EXPECT_EQ(copy.names, nullptr);
    EXPECT_EQ(copy.capacity, -1);
    Add(copy, "Arial");
    EXPECT_EQ(copy.GetSize(), 0);
    FontList assigned;
    assigned = list;
    EXPECT_EQ(assigned.names, nullptr);
}

TEST(FontListMemory, ANameThatMemoryRunsOutForIsIgnored) {
    FontList list = ListOf({"A"});
    char b[] = "B";
    char c[] = "C";
    char d[] = "D";
    {
        const AllocationGuard guard(0);
        list.AddFont(b);
        EXPECT_EQ(guard.Requests(), 1u);
        EXPECT_EQ(guard.LastSize(), 2u);
        EXPECT_EQ(list.GetSize(), 1);
    }
    {
        const AllocationGuard guard(1);
        char* names[] = {c, d};
        list.AddList(names, 2);
    }
    EXPECT_EQ(NamesOf(list), Names({"A", "C"}));
    Add(list, "B");
    EXPECT_EQ(NamesOf(list), Names({"A", "C", "B"}));
}

TEST(FontListMemory, ACopyThatMemoryRunsOutForIsShorter) {
    const FontList list = ListOf({"A", "B", "C"});
    const AllocationGuard guard(3);
    const FontList copy(list);
    ASSERT_EQ(copy.GetSize(), 2);
    EXPECT_STREQ(copy.GetList()[0], "A");
    EXPECT_STREQ(copy.GetList()[1], "B");
}

TEST(FontListMemory, AssignmentWithoutMemoryLeavesAListThatTakesNoName) {
    const SmallList source(2);
    FontList target = ListOf({"X", "Y"});
    {
        const AllocationGuard guard(0);
        target = source;
    }
    EXPECT_EQ(target.names, nullptr);
    EXPECT_EQ(target.capacity, 2);
    EXPECT_EQ(target.GetSize(), 0);
    Add(target, "X");
    EXPECT_EQ(target.GetSize(), 0);
    // With the capacity the same already there is no second try.
    target = source;
    EXPECT_EQ(target.names, nullptr);
}

}  // namespace
