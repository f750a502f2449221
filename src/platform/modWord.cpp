#include "platform/modWord.hpp"

#include <array>
#include <unordered_set>

namespace tarvek {
namespace {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

// Lives to the end of the process; its nodes never move.
struct Vocabulary {
    std::unordered_set<std::string, TextHash, std::equal_to<>> words;
    // The words met last, by a hash of length and end letters: from point to point the same few come again.
    std::array<const std::string*, 256> recent{};
};

Vocabulary& TheVocabulary() {
    static Vocabulary vocabulary;
    return vocabulary;
}

std::size_t RecentSlot(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    const auto last = static_cast<unsigned char>(text.back());
    return (text.size() * 31 + first * 7U + last) & 255;
}

}  // namespace

Word::Word(std::string_view text) {
    if (text.empty()) {
        text_ = &Empty();
        return;
    }
    Vocabulary& vocabulary = TheVocabulary();
    const std::string*& recent = vocabulary.recent[RecentSlot(text)];
    if (recent == nullptr || *recent != text) {
        const auto found = vocabulary.words.find(text);
        recent = found != vocabulary.words.end() ? &*found : &*vocabulary.words.emplace(text).first;
    }
    text_ = recent;
}

const std::string& Word::Empty() {
    static const std::string empty;
    return empty;
}

}  // namespace tarvek
