#pragma once
// The lines of a text in memory, millions of them, for commands that look for a tag at their beginnings again
// and again.

#include <bitset>
#include <cstdint>
#include <cstring>
#include <deque>
#include <limits>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/modCodePage.hpp"
#include "platform/modFaults.hpp"

namespace tarvek {

// The first two bytes of a line as one number, NUL where it has fewer. A command looks for its tag among
// these keys alone, and touches a line only where the key fits.
using Key = std::uint16_t;

inline Key KeyOf(std::string_view text) {
    const auto byteAt = [&](std::size_t at) {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    };
    return static_cast<Key>(byteAt(0) | byteAt(1) << 8);
}

// One bit for each key.
using KeySet = std::bitset<std::numeric_limits<Key>::max() + 1>;

// The bits of a key that a tag of this length decides.
inline Key MaskOf(std::size_t tagLength) {
    constexpr Key Masks[] = {0x0000, 0x00FF, 0xFFFF};
    return Masks[tagLength < 2 ? tagLength : 2];
}

// Up to 65,536 lines with their keys. A line's bytes stand behind their length in a chunk of memory that
// never moves; a line that outgrows its place gets a new one.
class LineBlock {
  public:
    LineBlock() {
        keys_.reserve(MostLines);
        places_.reserve(MostLines);
    }

    bool IsFull() const { return keys_.size() == MostLines; }
    std::size_t Count() const { return keys_.size(); }
    const Key* Keys() const { return keys_.data(); }

    std::string_view Line(std::size_t index) const {
        const char* const place = places_[index];
        return {place + sizeof(Length), LengthAt(place)};
    }

    // Appends a line in upper case and gives its key.
    Key AppendUpperCase(std::string_view text) {
        char* const place = Room(text);
        CopyUpperCase(place + sizeof(Length), text);
        places_.push_back(place);
        keys_.push_back(KeyOf(Line(keys_.size())));
        return keys_.back();
    }

    // Puts `text`, which must not be the line itself, in place of a line and gives its key.
    Key Replace(std::size_t index, std::string_view text) {
        char* const place = places_[index];
        const std::size_t room = LengthAt(place);
        if (text.size() <= room) {
            Put(place, text);
            wasted_ += room - text.size();
        } else {
            places_[index] = Store(text);
            wasted_ += sizeof(Length) + room;
        }
        keys_[index] = KeyOf(text);
        if (wasted_ > ChunkSize && wasted_ > used_ / 2) Compact();
        return keys_[index];
    }

  private:
    using Length = std::uint32_t;

    static constexpr std::size_t MostLines = 64 * 1024;
    static constexpr std::size_t ChunkSize = 32 * 1024;

    static Length LengthAt(const char* place) {
        Length length = 0;
        std::memcpy(&length, place, sizeof length);
        return length;
    }

    static void PutLength(char* place, std::size_t size) {
        const auto length = static_cast<Length>(size);
        std::memcpy(place, &length, sizeof length);
    }

    static void Put(char* place, std::string_view text) {
        PutLength(place, text.size());
        std::memcpy(place + sizeof(Length), text.data(), text.size());
    }

    // A new place for `text`, with its length put there.
    char* Room(std::string_view text) {
        if (text.size() > std::numeric_limits<Length>::max()) RaiseFault(Fault::Overflow);
        const std::size_t size = sizeof(Length) + text.size();
        if (size > room_) {
            room_ = size > ChunkSize ? size : ChunkSize;
            chunks_.push_back(std::make_unique_for_overwrite<char[]>(room_));
            free_ = chunks_.back().get();
        }
        char* const place = free_;
        PutLength(place, text.size());
        free_ += size;
        room_ -= size;
        used_ += size;
        return place;
    }

    char* Store(std::string_view text) {
        char* const place = Room(text);
        std::memcpy(place + sizeof(Length), text.data(), text.size());
        return place;
    }

    // Moves the lines into new chunks, without what has been left behind between them.
    void Compact() {
        const std::vector<std::unique_ptr<char[]>> old = std::move(chunks_);
        chunks_.clear();
        room_ = used_ = wasted_ = 0;
        for (char*& place : places_) place = Store({place + sizeof(Length), LengthAt(place)});
    }

    std::vector<Key> keys_;
    std::vector<char*> places_;
    std::vector<std::unique_ptr<char[]>> chunks_;
    char* free_ = nullptr;    // where the next text goes
    std::size_t room_ = 0;    // bytes that are left there
    std::size_t used_ = 0;    // bytes taken in all chunks
    std::size_t wasted_ = 0;  // those of them that no line needs any more
};

// The lines of the input file, in blocks, with the keys that occur or once occurred among them.
struct LineList {
    std::deque<LineBlock> blocks;
    KeySet keys;

    void Append(std::string_view line) {
        if (blocks.empty() || blocks.back().IsFull()) blocks.emplace_back();
        keys.set(blocks.back().AppendUpperCase(line));
    }

    bool MayHold(std::string_view tag) const { return tag.size() < 2 || keys.test(KeyOf(tag)); }
};

}  // namespace tarvek
