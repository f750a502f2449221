#pragma once
// The vocabulary of datum transformations: the method texts that stand in datums.ini, are offered by the
// datum editor and choose what a conversion does. They are compared exactly; the degree sign in them is byte
// 176.

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvek {

struct NADCONMethod {
    std::string name;
    std::string_view grid;  // the grid files' name without extension
    bool forward;           // true: the grid's shifts are applied; false: they are taken back
};

// The hundred methods in the order in which they are offered: each grid forward, then back.
const std::vector<NADCONMethod>& NADCONMethods();
// nullptr for any other name.
const NADCONMethod* FindNADCONMethod(std::string_view name);

// The regions of a GEOCON method, which reads transformation, " - ", region.
std::span<const std::string_view> GEOCONTransformations();
std::span<const std::string_view> GEOCONRegions();

// The methods offered for a datum of that type, in order; none for a text that is no type.
const std::vector<std::string_view>& MethodNamesOfType(std::string_view datumType);

// True for every method that some procedure knows, offered or not.
bool IsMethodName(std::string_view name);
// True for a method that moves positions; true for one that the change of a vertical datum takes. A method
// can be both: it moves heights together with positions, and the change of a vertical datum lets it pass.
bool IsPositionMethod(std::string_view name);
bool IsHeightMethod(std::string_view name);

}  // namespace tarvek
