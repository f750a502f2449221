#pragma once
// A list of records, indexed from 0, whose copies share their storage until one of them is changed. It grows
// in blocks, so that a million points are never moved, and a copy costs a pointer per block.

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "platform/modFaults.hpp"

namespace tarvek {

template <class Record>
class SharedList {
  public:
    std::size_t size() const {
        return blocks_.empty() ? 0 : (blocks_.size() - 1) * BlockSize + blocks_.back()->size();
    }
    // A list of which nothing was ever appended is not allocated; writers leave its block out.
    bool IsAllocated() const { return !blocks_.empty(); }

    const Record& operator[](std::size_t index) const {
        return (*blocks_[index / BlockSize])[index % BlockSize];
    }

    // The record for changing; its block is copied first where another list shares it.
    Record& Change(std::size_t index) {
        std::shared_ptr<Block>& block = blocks_[index / BlockSize];
        if (block.use_count() > 1) block = CopyOf(*block);
        return (*block)[index % BlockSize];
    }

    void Append(Record record) {
        if (blocks_.empty() || blocks_.back()->size() == BlockSize) {
            blocks_.push_back(std::make_shared<Block>());
            blocks_.back()->reserve(BlockSize);
        } else if (blocks_.back().use_count() > 1) {
            blocks_.back() = CopyOf(*blocks_.back());
        }
        blocks_.back()->push_back(std::move(record));
    }

    class Iterator {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Record;
        using difference_type = std::ptrdiff_t;
        using pointer = const Record*;
        using reference = const Record&;

        Iterator(const SharedList* list, std::size_t index) : list_(list), index_(index) {}
        reference operator*() const { return (*list_)[index_]; }
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        bool operator==(const Iterator& other) const { return index_ == other.index_; }

      private:
        const SharedList* list_;
        std::size_t index_;
    };
    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, size()}; }

  private:
    using Block = std::vector<Record>;
    static constexpr std::size_t BlockSize = 256;

    static std::shared_ptr<Block> CopyOf(const Block& block) {
        auto copy = std::make_shared<Block>();
        copy->reserve(BlockSize);
        copy->insert(copy->end(), block.begin(), block.end());
        return copy;
    }

    std::vector<std::shared_ptr<Block>> blocks_;
};

// A copy of `list`; Fault::SubscriptOutOfRange where it is not allocated, as after a reader that refused its
// file.
template <class Record>
SharedList<Record> CopyAllocated(const SharedList<Record>& list) {
    if (!list.IsAllocated()) RaiseFault(Fault::SubscriptOutOfRange);
    return list;
}

}  // namespace tarvek
