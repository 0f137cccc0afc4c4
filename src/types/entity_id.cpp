// SPDX-License-Identifier: MIT
#include "vellum/entity_id.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <iterator>
#include <new>

namespace Vellum {

namespace {

constexpr int32_t kMaxParts = std::size(EntityID::Data().parts);
// Room for one part in a text, with its sign and the comma or terminator after it.
constexpr size_t kCharsPerPart = 20;

constexpr int kTypeShift = 25;
constexpr int kTypeMask = 63;
constexpr int kMaxType = 32;

void SetParts(EntityID::Data* data, std::initializer_list<int32_t> parts) {
    if (data == nullptr) return;
    data->count = static_cast<int32_t>(parts.size());
    std::copy(parts.begin(), parts.end(), data->parts);
}

int32_t CountParts(const char* text) {
    int32_t count = 1;
    for (; *text != '\0' && count < kMaxParts; ++text)
        if (*text == ',') ++count;
    return count;
}

// Reads as scanf does with "%d,%d,...": up to the first number or comma that is missing.
void ScanParts(const char* text, EntityID::Data& data) {
    for (int32_t i = 0; i < data.count; ++i) {
        char* end = nullptr;
        const long long number = std::strtoll(text, &end, 10);
        if (end == text) return;
        data.parts[i] = static_cast<int32_t>(number);
        if (*end != ',') return;
        text = end + 1;
    }
}

// Returns the end of the text.
char* WritePart(char* text, int32_t part, bool hex) {
    const int length = hex ? std::snprintf(text, kCharsPerPart, "%X", static_cast<uint32_t>(part))
                           : std::snprintf(text, kCharsPerPart, "%d", part);
    return text + length;
}

}  // namespace

bool EntityIDIter::Done() const { return position >= owner->Length(); }

int EntityIDIter::Element() const { return owner->Element(position); }

void EntityIDIter::Next() {
    if (!Done()) ++position;
}

EntityID::EntityID() : data(new (std::nothrow) Data()), iterator(nullptr) {}

EntityID::EntityID(int a) : EntityID() { Assign(a); }
EntityID::EntityID(int a, int b) : EntityID() { Assign(a, b); }
EntityID::EntityID(int a, int b, int c) : EntityID() { Assign(a, b, c); }
EntityID::EntityID(int a, int b, int c, int d) : EntityID() { Assign(a, b, c, d); }
EntityID::EntityID(int a, int b, int c, int d, int e) : EntityID() { Assign(a, b, c, d, e); }

EntityID::EntityID(const EntityID& other) : EntityID() { *this = other; }

EntityID::EntityID(const char* text) : EntityID() {
    if (data == nullptr) return;
    if (text == nullptr) text = "";
    data->count = CountParts(text);
    ScanParts(text, *data);
}

EntityID::~EntityID() {
    delete data;
    delete iterator;
}

EntityID& EntityID::operator=(const EntityID& other) {
    if (this != &other && data != nullptr) *data = other.data == nullptr ? Data() : *other.data;
    return *this;
}

bool EntityID::operator==(const EntityID& other) const {
    const int count = Length();
    if (count != other.Length()) return false;
    return count == 0 || std::equal(data->parts, data->parts + count, other.data->parts);
}

void EntityID::Assign(int a) { SetParts(data, {a}); }
void EntityID::Assign(int a, int b) { SetParts(data, {a, b}); }
void EntityID::Assign(int a, int b, int c) { SetParts(data, {a, b, c}); }
void EntityID::Assign(int a, int b, int c, int d) { SetParts(data, {a, b, c, d}); }
void EntityID::Assign(int a, int b, int c, int d, int e) { SetParts(data, {a, b, c, d, e}); }

int EntityID::Add(int v) {
    if (data == nullptr || data->count >= kMaxParts) return 0;
    data->parts[data->count] = v;
    return ++data->count;
}

int EntityID::PushFirst(int v) {
    if (data == nullptr || data->count >= kMaxParts) return 0;
    std::copy_backward(data->parts, data->parts + data->count, data->parts + data->count + 1);
    data->parts[0] = v;
    return ++data->count;
}

int EntityID::PopFirst() {
    if (Length() < 1 || Length() > kMaxParts) return 0;
    const int first = data->parts[0];
    std::copy(data->parts + 1, data->parts + data->count, data->parts);
    --data->count;
    return first;
}

int EntityID::PopLast() {
    if (Length() < 1) return 0;
    --data->count;
    return data->parts[data->count];
}

void EntityID::Clear() {
    if (data != nullptr) data->count = 0;
}

void EntityID::AssignSheetID(int s) {
    if (data != nullptr) data->sheetId = s;
}

int EntityID::SheetID() const { return data == nullptr ? 0 : data->sheetId; }

bool EntityID::HasSheetID(int s) const { return SheetID() == s; }

int EntityID::Length() const { return data == nullptr ? 0 : data->count; }

bool EntityID::IsTuple() const { return Length() > 1; }

int EntityID::Element(int i) const { return i >= 0 && i < Length() ? data->parts[i] : 0; }

int EntityID::First() const { return Element(0); }

int EntityID::Last() const { return Element(Length() - 1); }

const unsigned char* EntityID::ByteStream(unsigned& length) const {
    length = static_cast<unsigned>(static_cast<size_t>(Length()) * sizeof(int32_t));
    return data == nullptr ? nullptr : reinterpret_cast<const unsigned char*>(data->parts);
}

char* EntityID::GetStringID(bool hex) const {
    if (Length() < 1) return nullptr;
    char* text = new (std::nothrow) char[static_cast<size_t>(Length()) * kCharsPerPart];
    if (text == nullptr) return nullptr;
    char* end = WritePart(text, data->parts[0], hex);
    for (int32_t i = 1; i < data->count; ++i) {
        *end = ',';
        end = WritePart(end + 1, data->parts[i], hex);
    }
    return text;
}

int EntityID::ECADObjId(int id) const {
    const int type = id >> kTypeShift & kTypeMask;
    return type == 0 || type > kMaxType ? 0 : static_cast<int>(1U << (type - 1));
}

EntityIDIter* EntityID::GetIterator() {
    if (iterator == nullptr)
        iterator = new (std::nothrow) EntityIDIter(this);
    else
        iterator->Reset();
    return iterator;
}

}  // namespace Vellum
