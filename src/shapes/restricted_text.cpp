// SPDX-License-Identifier: MIT
#include "vellum/restricted_text.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>

namespace Vellum {

namespace {

// Null also where there was memory for the string and none for the characters that it should have.
template <class Source>
UCS2String* NewString(const Source& source, bool hasCharacters) {
    std::unique_ptr<UCS2String> made(new (std::nothrow) UCS2String(source));
    if (made != nullptr && hasCharacters && made->buffer == nullptr) return nullptr;
    return made.release();
}

UCS2String* NewString(const unsigned short* text) { return NewString(text, text != nullptr); }

UCS2String* CopyOf(const UCS2String* s) { return s == nullptr ? nullptr : NewString(*s, s->length != 0); }

void AssignString(UCS2String*& target, const UCS2String* source) {
    if (target == nullptr || source == nullptr) {
        delete target;
        target = CopyOf(source);
        return;
    }
    *target = *source;
    if (target->length != source->length) {
        delete target;
        target = nullptr;
    }
}

}  // namespace

RestrictedTextGeom::RestrictedTextGeom(DblPt* startPt, double boxWidth, double boxHeight, unsigned id,
                                       unsigned short* text)
    : start(*startPt), width(boxWidth), height(boxHeight), stringId(id), final(true), string(NewString(text)) {}

RestrictedTextGeom::RestrictedTextGeom(const RestrictedTextGeom& o)
    : Shape(o),
      start(o.start),
      width(o.width),
      height(o.height),
      stringId(o.stringId),
      final(o.final),
      string(CopyOf(o.string)) {}

RestrictedTextGeom& RestrictedTextGeom::operator=(const RestrictedTextGeom& o) {
    if (this == &o) return *this;
    start = o.start;
    width = o.width;
    height = o.height;
    stringId = o.stringId;
    final = o.final;
    AssignString(string, o.string);
    return *this;
}

RestrictedTextGeom::~RestrictedTextGeom() { delete string; }

void RestrictedTextGeom::SetString(unsigned short* text) {
    const std::unique_ptr<UCS2String> former(string);
    string = NewString(text);
}

unsigned RestrictedTextGeom::StringToUChar(unsigned short** out) const {
    *out = nullptr;
    if (string == nullptr) return 0;
    const unsigned length = string->Length();
    *out = new (std::nothrow) unsigned short[size_t{length} + 1]();
    if (*out == nullptr) return 0;
    std::copy_n(string->UString(), length, *out);
    return length;
}

}  // namespace Vellum
