#include "library/modMethodNames.hpp"

#include <algorithm>
#include <initializer_list>

#include "library/modLibraryNames.hpp"

namespace tarvek {
namespace {

struct HPGNArea {
    std::string_view name;
    std::string_view suffix;
    std::string_view grid;
};

constexpr HPGNArea HPGNAreas[] = {
    {"Alabama", "", "alhpgn"},
    {"Arkansas", "", "arhpgn"},
    {"Arizona", "", "azhpgn"},
    {"California", " (Above 37\xB0 Latitude)", "cnhpgn"},
    {"California", " (Below 37\xB0 Latitude)", "cshpgn"},
    {"Colorado", "", "cohpgn"},
    {"Florida", "", "flhpgn"},
    {"Georgia", "", "gahpgn"},
    {"Guam", "", "guhpgn"},
    {"Hawaii", "", "hihpgn"},
    {"Idaho-Montana", " (East of 133\xB0 Longitude)", "emhpgn"},
    {"Idaho-Montana", " (West of 133\xB0 Longitude)", "wmhpgn"},
    {"Iowa", "", "iahpgn"},
    {"Illinois", "", "ilhpgn"},
    {"Indiana", "", "inhpgn"},
    {"Kansas", "", "kshpgn"},
    {"Kentucky", "", "kyhpgn"},
    {"Louisiana", "", "lahpgn"},
    {"Maryland-Delaware", "", "mdhpgn"},
    {"Maine", "", "mehpgn"},
    {"Michigan", "", "mihpgn"},
    {"Minnesota", "", "mnhpgn"},
    {"Mississippi", "", "mshpgn"},
    {"Missouri", "", "mohpgn"},
    {"Nebraska", "", "nbhpgn"},
    {"Nevada", "", "nvhpgn"},
    {"New England", " (CT, MA, NH, RI, VT)", "nehpgn"},
    {"New Jersey", "", "njhpgn"},
    {"New Mexico", "", "nmhpgn"},
    {"New York", "", "nyhpgn"},
    {"North Carolina", "", "nchpgn"},
    {"North Dakota", "", "ndhpgn"},
    {"Ohio", "", "ohhpgn"},
    {"Oklahoma", "", "okhpgn"},
    {"Pennsylvania", "", "pahpgn"},
    {"Puerto Rico-Virgin Islands", "", "pvhpgn"},
    {"Samoa (Eastern Islands)", "", "eshpgn"},
    {"Samoa (Western Islands)", "", "wshpgn"},
    {"South Carolina", "", "schpgn"},
    {"South Dakota", "", "sdhpgn"},
    {"Tennessee", "", "tnhpgn"},
    {"Texas", " (East of 100\xB0 Longitude)", "ethpgn"},
    {"Texas", " (West of 100\xB0 Longitude)", "wthpgn"},
    {"Utah", "", "uthpgn"},
    {"Virginia", "", "vahpgn"},
    {"Washington-Oregon", "", "wohpgn"},
    {"West Virginia", "", "wvhpgn"},
    {"Velmora", "", "vlhpgn"},
    {"Wyoming", "", "wyhpgn"},
};

constexpr std::string_view HTDPMethod = "HTDP 3.2.3 NAD 83 (2007/2011/CORS) to WGS 84 (G1674)";

constexpr std::string_view VerticalMethods[] = {
    "VERTCON NGVD 29 to NAVD 88", "VERTCON NAVD 88 to NGVD 29", "GEOID99 NAD 83 to NAVD 88",
    "GEOID03 NAD 83 to NAVD 88",  "GEOID06 NAD 83 to NAVD 88",  "GEOID09 NAD 83 to NAVD 88",
    "GEOID99 NAVD 88 to NAD 83",  "GEOID03 NAVD 88 to NAD 83",  "GEOID06 NAVD 88 to NAD 83",
    "GEOID09 NAVD 88 to NAD 83",
};

constexpr std::string_view Methods3D[] = {
    "GEOID99 NAD 83 to NAVD 88",
    "GEOID03 NAD 83 to NAVD 88",
    "GEOID06 NAD 83 to NAVD 88",
    "GEOID09 NAD 83 to NAVD 88",
    "GEOID12A NAD 83 to NAVD 88",
    "GEOID99 NAVD 88 to NAD 83",
    "GEOID03 NAVD 88 to NAD 83",
    "GEOID06 NAVD 88 to NAD 83",
    "GEOID09 NAVD 88 to NAD 83",
    "GEOID12A NAVD 88 to NAD 83",
    "GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - CONUS",
    "GEOCON Beta NAD 83 (2007) to NAD 83 (HARN) - CONUS",
    "GEOCON11 Beta NAD 83 (2007) to NAD 83 (2011) - CONUS",
    "GEOCON11 Beta NAD 83 (2011) to NAD 83 (2007) - CONUS",
    HTDPMethod,
};

// They have moved the heights already when the vertical datum is changed.
constexpr std::string_view HeightsMovedMethods[] = {
    "GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - CONUS",
    "GEOCON Beta NAD 83 (2007) to NAD 83 (HARN) - CONUS",
};

constexpr std::string_view TheGEOCONTransformations[] = {
    "GEOCON Beta NAD 83 (HARN) to NAD 83 (2007)",
    "GEOCON Beta NAD 83 (2007) to NAD 83 (HARN)",
    "GEOCON11 Beta NAD 83 (2007) to NAD 83 (2011)",
    "GEOCON11 Beta NAD 83 (2011) to NAD 83 (2007)",
};

constexpr std::string_view TheGEOCONRegions[] = {"CONUS", "Alaska", "PR/VI"};
constexpr std::string_view RegionMark = " - ";

std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) text += part;
    return text;
}

std::vector<NADCONMethod> MakeNADCONMethods() {
    std::vector<NADCONMethod> methods = {{"NADCON NAD 27 to NAD 83", "conus", true},
                                         {"NADCON NAD 83 to NAD 27", "conus", false}};
    for (const HPGNArea& area : HPGNAreas) {
        // The way back from Alabama has always borne another year than the rest.
        const std::string_view year = area.name == "Alabama" ? "1996" : "1986";
        methods.push_back(
            {Joined({"NADCON NAD 83 (1986) to ", area.name, " HPGN", area.suffix}), area.grid, true});
        methods.push_back(
            {Joined({"NADCON ", area.name, " HPGN to NAD 83 (", year, ")", area.suffix}), area.grid, false});
    }
    return methods;
}

std::vector<std::string_view> NamesOf(const std::vector<NADCONMethod>& methods) {
    std::vector<std::string_view> names;
    names.reserve(methods.size());
    for (const NADCONMethod& method : methods) names.emplace_back(method.name);
    return names;
}

template <class Names>
bool Contains(const Names& names, std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

bool IsGEOCONMethod(std::string_view name) {
    const std::size_t mark = name.rfind(RegionMark);
    return mark != std::string_view::npos && Contains(TheGEOCONTransformations, name.substr(0, mark)) &&
           Contains(TheGEOCONRegions, name.substr(mark + RegionMark.size()));
}

}  // namespace

const std::vector<NADCONMethod>& NADCONMethods() {
    static const std::vector<NADCONMethod> methods = MakeNADCONMethods();
    return methods;
}

const NADCONMethod* FindNADCONMethod(std::string_view name) {
    for (const NADCONMethod& method : NADCONMethods())
        if (method.name == name) return &method;
    return nullptr;
}

std::span<const std::string_view> GEOCONTransformations() { return TheGEOCONTransformations; }
std::span<const std::string_view> GEOCONRegions() { return TheGEOCONRegions; }

const std::vector<std::string_view>& MethodNamesOfType(std::string_view datumType) {
    static const std::vector<std::string_view> ofHorizontal = NamesOf(NADCONMethods());
    static const std::vector<std::string_view> ofVertical(std::begin(VerticalMethods),
                                                          std::end(VerticalMethods));
    static const std::vector<std::string_view> of3D(std::begin(Methods3D), std::end(Methods3D));
    static const std::vector<std::string_view> ofNothing;
    if (datumType == DatumHorizontal) return ofHorizontal;
    if (datumType == DatumVertical) return ofVertical;
    return datumType == Datum3D ? of3D : ofNothing;
}

bool IsMethodName(std::string_view name) {
    return IsPositionMethod(name) || IsHeightMethod(name) || Contains(Methods3D, name);
}

bool IsPositionMethod(std::string_view name) {
    return FindNADCONMethod(name) != nullptr || IsGEOCONMethod(name) || name == HTDPMethod;
}

bool IsHeightMethod(std::string_view name) {
    return Contains(VerticalMethods, name) || Contains(HeightsMovedMethods, name);
}

}  // namespace tarvek
