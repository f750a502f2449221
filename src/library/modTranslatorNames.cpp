#include "library/modTranslatorNames.hpp"

#include <algorithm>

namespace tarvek {
namespace {

constexpr unsigned ReadAlone = Readable;
constexpr unsigned Converted = Readable | WritableConverted;
constexpr unsigned Whole = Readable | Writable | WritableConverted;

constexpr TypeLabel TheTypeLabels[] = {
    {"NGS Data Sheets (*.TXT)", ReadAlone},
    {"NGS Data Sheets (*.HTM)", ReadAlone},
    {"NGS Data Sheets (*.DAT)", ReadAlone},
    {"Tarvek Control Files (*.CTL)", Whole},
    {"Tarvek Project Files (*.PRJ)", Converted},
    {"Tarvek Edited Project Files (*.EDI)", Converted},
    {"Tarvek Calculated Files (*.CAL)", Converted},
    {"Tarvek Points and Chains Files (*.PAC)", Whole},
    {"Velmora Summary Index Files (*.VSI)", Whole},
    {"CAiCE SRV Files (*.SRV)", Whole},
    {"User-Defined ASCII Files (*.*)", Whole},
    {"OGC/Google KML Version 2.2 (*.KML)", Writable},
    {"Coordinate Conversion Manual Entry", TypedByHand},
};

constexpr TranslationRoutine TheRoutines[] = {
    {"RECODE.EXE", 0, 0},
    {"CURVE2TAN.EXE", 0, 0},
    {"TAN2CURVE.EXE", 0, 0},
    {"PICKOUT.EXE", 0, 0},
    {"GROUNDIT.EXE", 0, 0},
    {"CTRL2ZONE.EXE", 0, 0},
    {"ROUTE2STATION.EXE", 0, 0},
    {"LEVELIN.EXE", 0, 0},
    {"PTORDER.EXE", 0, 0},
    {"SinglePoint", TypedByHand, TypedByHand},
    {"MultiPoint", Readable, WritableConverted},
    {"CoordConvert", 0, 0},
    {"ConvertFile", Readable, Writable},
    {"Replace", 0, 0},
};

}  // namespace

std::span<const TypeLabel> TypeLabels() { return TheTypeLabels; }

std::span<const TranslationRoutine> TranslationRoutines() { return TheRoutines; }

const TypeLabel* FindTypeLabel(std::string_view label) {
    const auto found = std::find_if(std::begin(TheTypeLabels), std::end(TheTypeLabels),
                                    [label](const TypeLabel& type) { return type.label == label; });
    return found == std::end(TheTypeLabels) ? nullptr : found;
}

const TranslationRoutine* FindTranslationRoutine(std::string_view program) {
    const auto found =
        std::find_if(std::begin(TheRoutines), std::end(TheRoutines),
                     [program](const TranslationRoutine& routine) { return routine.program == program; });
    return found == std::end(TheRoutines) ? nullptr : found;
}

}  // namespace tarvek
