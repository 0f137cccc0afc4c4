// SPDX-License-Identifier: MIT
#ifndef VELLUM_ENTITY_ID_H
#define VELLUM_ENTITY_ID_H

/// @file
/// `EntityID`, the name of a drawing entity: up to five integers and a sheet number.

#include <cstdint>

#include "vellum/export.h"

namespace Vellum {

class EntityID;

/// Walks over the parts of an `EntityID`, which makes and owns it: see `EntityID::GetIterator`.
class VELLUM_API EntityIDIter {
public:
    EntityID* owner;
    int32_t position = 0;

    EntityIDIter(const EntityIDIter&) = delete;
    /// Takes over owner and position.
    VELLUM_INLINE EntityIDIter& operator=(const EntityIDIter& it) {
        owner = it.owner;
        position = it.position;
        return *this;
    }

    /// Whether all parts have been visited.
    bool Done() const;
    /// The part at the position; 0 where there is none.
    int Element() const;
    void Next();
    VELLUM_INLINE void Reset() { position = 0; }
    VELLUM_INLINE int WhichIdx() const { return position; }

private:
    friend class EntityID;
    VELLUM_INLINE explicit EntityIDIter(EntityID* id) : owner(id) {}
    VELLUM_INLINE ~EntityIDIter() {}
};

/// A tuple of up to five integers, for example owner, sub-object and element, with a sheet number beside it.
///
/// It works as a small deque: what does not fit is refused with the result 0, and what is not there reads as 0. Where
/// memory ran out in the constructor the identifier has no block; it answers as an empty one then and refuses
/// everything.
class VELLUM_API EntityID {
public:
    /// The block that an identifier owns. Only the first `count` parts mean anything.
    struct Data {
        int32_t count;
        int32_t sheetId;
        int32_t parts[5];
    };

    Data* data;              ///< owned; null where the constructor got no memory
    EntityIDIter* iterator;  ///< owned; null before the first `GetIterator`

    /// @name Construction
    /// @{
    EntityID();
    explicit EntityID(int a);
    EntityID(int a, int b);
    EntityID(int a, int b, int c);
    EntityID(int a, int b, int c, int d);
    EntityID(int a, int b, int c, int d, int e);
    /// Copies parts and sheet number; the iterator stays with @p other.
    EntityID(const EntityID& other);
    /// From decimal numbers with commas between them, such as "12,7,3". The commas alone decide how many parts there
    /// are (at most five, at least one). White space before a number is skipped, and what follows the fifth is
    /// ignored. Reading ends where a number or the comma behind it is missing; the parts not read are 0. Hexadecimal
    /// text is not read. Of a number that does not fit a part the low 32 bits count, after one beyond 64 bits has
    /// become the nearest that those hold. Null counts as an empty text.
    explicit EntityID(const char* text);
    ~EntityID();
    /// Copies parts and sheet number; the iterator is kept.
    EntityID& operator=(const EntityID& other);
    /// @}

    /// Whether count and parts are equal; the sheet numbers are not compared.
    bool operator==(const EntityID& other) const;
    VELLUM_INLINE bool operator!=(const EntityID& other) const { return !(*this == other); }

    /// @name Building
    /// The sheet number stays as it is throughout.
    /// @{
    void Assign(int a);
    void Assign(int a, int b);
    void Assign(int a, int b, int c);
    void Assign(int a, int b, int c, int d);
    void Assign(int a, int b, int c, int d, int e);
    /// Appends @p v and returns the new count; 0 where there are five parts already.
    int Add(int v);
    /// Puts @p v before the first part and returns the new count; 0 where there are five parts already.
    int PushFirst(int v);
    /// Removes and returns the first part; 0 where there is none.
    int PopFirst();
    /// Removes and returns the last part; 0 where there is none.
    int PopLast();
    void Clear();
    void AssignSheetID(int s);
    /// @}

    /// @name Reading
    /// @{
    int SheetID() const;
    bool HasSheetID(int s) const;
    int Length() const;
    bool IsTuple() const;
    VELLUM_INLINE int MaxLength() const { return 5; }
    /// Part @p i; 0 where there is none.
    int Element(int i) const;
    int First() const;
    int Last() const;
    /// The parts as they lie in memory, owned by this identifier; @p length receives their size in bytes. Null and 0
    /// where the identifier has no block.
    const unsigned char* ByteStream(unsigned& length) const;
    /// The parts with commas between them, in decimal or in upper-case hexadecimal (negative ones as 32-bit patterns).
    /// Null where there is no part or memory runs out; the caller releases the text with delete[].
    char* GetStringID(bool hex) const;
    /// @}

    /// @name Packed object identifiers
    /// These read their argument alone: the object type in bits 25 to 30, the unique number below.
    /// @{

    /// A flag with the bit of the type set: 1 << (type - 1); 0 for type 0 and for types above 32.
    int ECADObjId(int id) const;
    VELLUM_INLINE int ECADUniqueId(int id) const { return id & 0x1FFFFFF; }
    /// @}

    /// The identifier's one iterator, at the first part. The identifier owns it; every call resets its position (an
    /// owner that was assigned to it stays). Null where memory runs out.
    EntityIDIter* GetIterator();
};

}  // namespace Vellum

#endif
