// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_MONOTONE_QUEUE_H
#define VELLUM_SRC_PATHS_MONOTONE_QUEUE_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "paths/scratch_array.h"

namespace Vellum::internal {

/// A priority queue of items by costs that are neither negative nor less than the last one taken off: a radix heap.
/// Items of equal cost are taken off in the order in which they were pushed.
///
/// The bits of such a cost, read as a whole number, ascend with it; call that its key. There is a base, which no key
/// is below. An item lies in a bucket of the level of the highest digit in which its key differs from the base, and
/// there in the one of the value of that digit. So keys in a lower bucket are lower, equal keys lie in one bucket,
/// and those in a bucket of level 0 are all equal. Where level 0 is empty, the least key in the lowest bucket
/// becomes the base, and the items in that bucket go to lower ones, which are empty, in their order; an item that is
/// alone there is taken off as it is.
class MonotoneQueue {
public:
    /// To be called before anything else. False where memory runs out.
    bool Clear() {
        if (!entries_.Resize(kBuckets)) return false;
        for (uint32_t bucket = 0; bucket < kBuckets; ++bucket)
            lasts_[bucket] = bucket;
        std::fill_n(occupiedDigits_, kLevels, 0);
        occupiedLevels_ = 0;
        unused_ = kNone;
        base_ = 0;
        return true;
    }

    /// False where memory runs out.
    bool Push(double cost, uint32_t item) {
        uint32_t i = unused_;
        if (i != kNone) {
            unused_ = entries_[i].next;
        } else {
            i = static_cast<uint32_t>(entries_.Size());
            if (!entries_.Resize(entries_.Size() + 1)) return false;
        }
        entries_[i].key = std::bit_cast<uint64_t>(cost);
        entries_[i].item = item;
        Put(i);
        return true;
    }

    /// False where there is no item.
    bool Pop(double& cost, uint32_t& item) {
        if (occupiedLevels_ == 0) return false;
        Bucket lowest = LowestBucket();
        // Where an item is alone there is none to tell it from.
        if (lowest.level != 0 && entries_[lowest.index].next != lasts_[lowest.index]) {
            Empty(lowest);
            lowest = LowestBucket();
        }
        const uint32_t i = entries_[lowest.index].next;
        Entry& entry = entries_[i];
        entries_[lowest.index].next = entry.next;
        if (lasts_[lowest.index] == i) MarkEmpty(lowest);
        entry.next = unused_;
        unused_ = i;
        cost = std::bit_cast<double>(entry.key);
        item = entry.item;
        return true;
    }

    /// How often an item was put into a bucket.
    uint64_t Moves() const { return moves_; }

private:
    static constexpr uint32_t kNone = UINT32_MAX;
    static constexpr unsigned kDigitBits = 5;
    static constexpr unsigned kDigits = 1U << kDigitBits;
    static constexpr unsigned kLevels = (64 + kDigitBits - 1) / kDigitBits;
    static constexpr unsigned kBuckets = kLevels * kDigits;

    struct Entry {
        uint64_t key;
        uint32_t item;
        uint32_t next;
    };

    struct Bucket {
        unsigned level;
        unsigned digit;
        uint32_t index;
    };

    void Put(uint32_t i) {
        const uint64_t key = entries_[i].key;
        const unsigned level = (static_cast<unsigned>(std::bit_width((key ^ base_) | 1)) - 1) / kDigitBits;
        const unsigned digit = static_cast<unsigned>(key >> (level * kDigitBits)) % kDigits;
        uint32_t& last = lasts_[level * kDigits + digit];
        entries_[last].next = i;
        last = i;
        occupiedDigits_[level] |= 1U << digit;
        occupiedLevels_ |= 1U << level;
        ++moves_;
    }

    Bucket LowestBucket() const {
        const auto level = static_cast<unsigned>(std::countr_zero(occupiedLevels_));
        const auto digit = static_cast<unsigned>(std::countr_zero(occupiedDigits_[level]));
        return {level, digit, level * kDigits + digit};
    }

    /// Moves the items of the lowest bucket to lower ones.
    void Empty(const Bucket& lowest) {
        const uint32_t last = lasts_[lowest.index];
        MarkEmpty(lowest);
        base_ = entries_[last].key;
        for (uint32_t i = entries_[lowest.index].next; i != last; i = entries_[i].next)
            base_ = std::min(base_, entries_[i].key);
        for (uint32_t i = entries_[lowest.index].next; i != last;) {
            const uint32_t next = entries_[i].next;
            Put(i);
            i = next;
        }
        Put(last);
    }

    void MarkEmpty(const Bucket& bucket) {
        lasts_[bucket.index] = bucket.index;
        occupiedDigits_[bucket.level] &= ~(1U << bucket.digit);
        if (occupiedDigits_[bucket.level] == 0) occupiedLevels_ &= ~(1U << bucket.level);
    }

    // Linked lists: the first entries are the heads of the buckets, the others those of the items.
    ScratchArray<Entry> entries_;
    uint32_t unused_ = kNone;             ///< the first of the entries that hold no item
    uint32_t lasts_[kBuckets]{};          ///< the last entry in each bucket; its head where it is empty
    uint32_t occupiedDigits_[kLevels]{};  ///< a bit for each bucket that is not empty
    uint32_t occupiedLevels_ = 0;         ///< a bit for each level that is not empty
    uint64_t base_ = 0;
    uint64_t moves_ = 0;
};

}  // namespace Vellum::internal

#endif
