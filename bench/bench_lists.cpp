// Fills every list of a conversion dialog from the library in the program folder, once for each coordinate
// system, and prints the milliseconds that one filling of all lists takes (the median of several), then the
// milliseconds that reading the library's files alone takes: the floor below it.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include "library/modComboBoxList.hpp"
#include "library/modINIFile.hpp"
#include "library/modLibraryFiles.hpp"
#include "library/modMisc.hpp"

namespace {

using namespace tarvek;

constexpr int Rounds = 21;

// Both sides of a dialog: systems, the zones of the largest system, horizontal and vertical datums, units.
void FillAllLists() {
    for (const bool inputSide : {true, false}) {
        ComboBoxList systems;
        LOAD_CS_ComboBoxList(systems);
        ComboBoxList zones;
        LOAD_Zones_ComboBoxList(zones, inputSide, systems.Items().front().text);
        ComboBoxList datums;
        LOAD_Datums_ComboBoxList(datums, inputSide, true, true, false);
        LOAD_Datums_ComboBoxList(datums, inputSide, false, true, false);
        ComboBoxList units;
        LOAD_Units_ComboBoxList(units, true);
        LOAD_Units_ComboBoxList(units, false);
        GET_ZoneDefaults(systems.Items().front().text, zones.Items().front().text);
    }
}

void ReadFiles() {
    for (const std::string& file : {ZonesFile(), DatumsFile(), EllipsoidsFile()}) ReadINIFile(file);
}

double MedianMilliseconds(const std::function<void()>& work) {
    std::vector<double> times;
    for (int i = 0; i < Rounds; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::nth_element(times.begin(), times.begin() + Rounds / 2, times.end());
    return times[Rounds / 2];
}

}  // namespace

int main() { std::printf("%.3f %.3f\n", MedianMilliseconds(FillAllLists), MedianMilliseconds(ReadFiles)); }
