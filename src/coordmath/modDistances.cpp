#include "coordmath/modDistances.hpp"

#include <iterator>

#include "platform/modNumbers.hpp"

namespace tarvek {
namespace {

struct Unit {
    std::string_view name;
    std::string_view letter;
    double factors[3];  // to the units of this table, in its order
};

// 3937/1200 and 1200/3937 for the U.S. survey foot (Federal Register notice 59-5442, 1959); 2 ppm between the
// feet.
constexpr Unit Units[] = {
    {"Meters", "M", {1.0, 3.2808333333333333, 3.280839895}},
    {"U.S. Survey Feet", "F", {0.3048006096012192, 1.0, 1.000002}},
    {"International Feet", "I", {0.3048, 0.999998, 1.0}},
};

const Unit* FindUnit(std::string_view text) {
    for (const Unit& unit : Units)
        if (text == unit.name || text == unit.letter) return &unit;
    return nullptr;
}

}  // namespace

std::string_view Distances_GET_UnitName(char letter) {
    const Unit* unit = FindUnit({&letter, 1});
    return unit == nullptr ? std::string_view() : unit->name;
}

std::string_view Distances_GET_UnitLetter(std::string_view name) {
    const Unit* unit = FindUnit(name);
    return unit == nullptr || unit->name != name ? std::string_view() : unit->letter;
}

double Distances_GET_Convert(double value, std::string_view unitFrom, std::string_view unitTo) {
    return DistanceConversion(unitFrom, unitTo)(value);
}

DistanceConversion::DistanceConversion(std::string_view unitFrom, std::string_view unitTo) {
    const Unit* from = FindUnit(unitFrom);
    if (unitFrom == unitTo || from == nullptr) return;
    const Unit* to = FindUnit(unitTo);
    isKnown_ = to != nullptr;
    if (isKnown_) factor_ = from->factors[to - std::begin(Units)];
}

RecordDistances::RecordDistances(std::string_view unitTo)
    : unitTo_(unitTo), unitFrom_(unitTo), conversion_(unitTo, unitTo) {}

float RecordDistances::Convert(float value, Word unitFrom) {
    return SingleFromNumber(Convert(double{value}, unitFrom));
}

void RecordDistances::Begin(Word unitFrom) {
    unitFrom_ = unitFrom;
    conversion_ = DistanceConversion(unitFrom, unitTo_);
}

}  // namespace tarvek
