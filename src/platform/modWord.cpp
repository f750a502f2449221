#include "platform/modWord.hpp"

#include <unordered_set>

namespace tarvek {
namespace {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

// Lives to the end of the process; its nodes never move.
using Vocabulary = std::unordered_set<std::string, TextHash, std::equal_to<>>;

Vocabulary& Words() {
    static Vocabulary words;
    return words;
}

}  // namespace

Word::Word(std::string_view text) {
    Vocabulary& words = Words();
    const auto found = words.find(text);
    text_ = found != words.end() ? &*found : &*words.emplace(text).first;
}

const std::string& Word::Empty() {
    static const Word empty{std::string_view()};
    return *empty.text_;
}

}  // namespace tarvek
