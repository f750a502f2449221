#pragma once
// A text that repeats from record to record (a unit, a class, a feature code), held once for the whole
// process. A Word is the size of a pointer, is copied for nothing and compared by identity.

#include <string>
#include <string_view>

namespace tarvek {

class Word {
  public:
    Word() : text_(&Empty()) {}
    // The word that says `text`: no allocation where the text has been met before.
    Word(std::string_view text);                                     // NOLINT(google-explicit-constructor)
    Word(const char* text) : Word(std::string_view(text)) {}         // NOLINT(google-explicit-constructor)
    Word(const std::string& text) : Word(std::string_view(text)) {}  // NOLINT(google-explicit-constructor)

    const std::string& Text() const { return *text_; }
    operator std::string_view() const { return *text_; }  // NOLINT(google-explicit-constructor)
    bool empty() const { return text_->empty(); }

    friend bool operator==(Word a, Word b) { return a.text_ == b.text_; }
    friend bool operator==(Word a, std::string_view b) { return *a.text_ == b; }
    friend bool operator==(Word a, const std::string& b) { return *a.text_ == b; }
    friend bool operator==(Word a, const char* b) { return *a.text_ == b; }

  private:
    static const std::string& Empty();
    const std::string* text_;
};

}  // namespace tarvek
