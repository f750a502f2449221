#pragma once
// The words of translator definitions: the labels of file types and the routines that perform translations.
// Both are compared exactly.

#include <span>
#include <string_view>

namespace tarvek {

// What a type can be in the routines that choose a reader and a writer by label.
enum TypeRole : unsigned {
    Readable = 1,
    Writable = 2,           // by a plain change of the format
    WritableConverted = 4,  // after a coordinate conversion
    TypedByHand = 8,        // stands for a point that is typed, and shown, instead of a file
};

struct TypeLabel {
    std::string_view label;
    unsigned roles;
};

// A routine, and which role it asks of its input and its output type. 0: it takes files of any kind, so that
// the label is free text, with the pattern of the files in parentheses at its end.
struct TranslationRoutine {
    std::string_view program;
    unsigned input;
    unsigned output;
};

std::span<const TypeLabel> TypeLabels();
std::span<const TranslationRoutine> TranslationRoutines();
// nullptr for any other text.
const TypeLabel* FindTypeLabel(std::string_view label);
const TranslationRoutine* FindTranslationRoutine(std::string_view program);

}  // namespace tarvek
