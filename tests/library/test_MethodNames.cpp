#include <set>

#include "library/modLibraryNames.hpp"
#include "library/modMethodNames.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

TEST(MethodNames, HundredNADCONMethodsInPairs) {
    const auto& methods = NADCONMethods();
    ASSERT_EQ(methods.size(), 100U);
    std::set<std::string> names;
    std::set<std::string_view> grids;
    for (std::size_t i = 0; i < methods.size(); ++i) {
        EXPECT_EQ(methods[i].forward, i % 2 == 0) << methods[i].name;
        EXPECT_EQ(methods[i].grid, methods[i / 2 * 2].grid);
        EXPECT_TRUE(methods[i].name.starts_with("NADCON ")) << methods[i].name;
        names.insert(methods[i].name);
        grids.insert(methods[i].grid);
    }
    EXPECT_EQ(names.size(), 100U);
    EXPECT_EQ(grids.size(), 50U);
    EXPECT_EQ(methods[0].name, "NADCON NAD 27 to NAD 83");
    EXPECT_EQ(methods[1].name, "NADCON NAD 83 to NAD 27");
    EXPECT_EQ(methods[2].name, "NADCON NAD 83 (1986) to Alabama HPGN");
    EXPECT_EQ(methods[98].name, "NADCON NAD 83 (1986) to Wyoming HPGN");
    EXPECT_EQ(methods[99].name, "NADCON Wyoming HPGN to NAD 83 (1986)");
}

void ExpectGrid(std::string_view name, std::string_view grid, bool forward) {
    const NADCONMethod* const method = FindNADCONMethod(name);
    ASSERT_NE(method, nullptr) << name;
    EXPECT_EQ(method->grid, grid) << name;
    EXPECT_EQ(method->forward, forward) << name;
}

TEST(MethodNames, GridAndDirectionOfNADCONMethods) {
    ExpectGrid("NADCON NAD 27 to NAD 83", "conus", true);
    ExpectGrid("NADCON NAD 83 to NAD 27", "conus", false);
    ExpectGrid("NADCON NAD 83 (1986) to California HPGN (Above 37\xB0 Latitude)", "cnhpgn", true);
    ExpectGrid("NADCON California HPGN to NAD 83 (1986) (Below 37\xB0 Latitude)", "cshpgn", false);
    ExpectGrid("NADCON NAD 83 (1986) to Samoa (Eastern Islands) HPGN", "eshpgn", true);
    ExpectGrid("NADCON New England HPGN to NAD 83 (1986) (CT, MA, NH, RI, VT)", "nehpgn", false);
    ExpectGrid("NADCON Velmora HPGN to NAD 83 (1986)", "vlhpgn", false);
}

TEST(MethodNames, WayBackFromAlabamaBearsAnotherYear) {
    ExpectGrid("NADCON Alabama HPGN to NAD 83 (1996)", "alhpgn", false);
    EXPECT_EQ(FindNADCONMethod("NADCON Alabama HPGN to NAD 83 (1986)"), nullptr);
    EXPECT_FALSE(IsMethodName("NADCON Alabama HPGN to NAD 83 (1986)"));
    EXPECT_FALSE(IsMethodName("NADCON Texas HPGN to NAD 83 (1996) (East of 100\xB0 Longitude)"));
}

TEST(MethodNames, OfferedByTypeOfDatum) {
    EXPECT_EQ(MethodNamesOfType("Horizontal").size(), 100U);
    EXPECT_EQ(MethodNamesOfType("Horizontal")[1], "NADCON NAD 83 to NAD 27");
    const std::vector<std::string_view> vertical = {
        "VERTCON NGVD 29 to NAVD 88", "VERTCON NAVD 88 to NGVD 29", "GEOID99 NAD 83 to NAVD 88",
        "GEOID03 NAD 83 to NAVD 88",  "GEOID06 NAD 83 to NAVD 88",  "GEOID09 NAD 83 to NAVD 88",
        "GEOID99 NAVD 88 to NAD 83",  "GEOID03 NAVD 88 to NAD 83",  "GEOID06 NAVD 88 to NAD 83",
        "GEOID09 NAVD 88 to NAD 83"};
    EXPECT_EQ(MethodNamesOfType("Vertical"), vertical);
    const std::vector<std::string_view> of3D = {"GEOID99 NAD 83 to NAVD 88",
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
                                                "HTDP 3.2.3 NAD 83 (2007/2011/CORS) to WGS 84 (G1674)"};
    EXPECT_EQ(MethodNamesOfType("3D"), of3D);
    EXPECT_TRUE(MethodNamesOfType("vertical").empty());
}

TEST(MethodNames, EveryOfferedMethodIsKnown) {
    for (const std::string_view type : DatumTypes)
        for (const std::string_view name : MethodNamesOfType(type)) EXPECT_TRUE(IsMethodName(name)) << name;
}

TEST(MethodNames, GEOCONMethodsOfEveryRegionAreKnown) {
    EXPECT_TRUE(IsMethodName("GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - Alaska"));
    EXPECT_TRUE(IsMethodName("GEOCON11 Beta NAD 83 (2011) to NAD 83 (2007) - PR/VI"));
    EXPECT_FALSE(IsMethodName("GEOCON Beta NAD 83 (HARN) to NAD 83 (2007)"));
    EXPECT_FALSE(IsMethodName("GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - Guam"));
    EXPECT_FALSE(IsMethodName("GEOCON Beta NAD 83 (HARN) to NAD 83 (2011) - CONUS"));
}

TEST(MethodNames, ComparisonIsExact) {
    EXPECT_FALSE(IsMethodName(""));
    EXPECT_FALSE(IsMethodName("NADCON"));
    EXPECT_FALSE(IsMethodName("nadcon NAD 27 to NAD 83"));
    EXPECT_FALSE(IsMethodName("NADCON NAD 27 to NAD 83 "));
    EXPECT_FALSE(IsMethodName("NADCON NAD 83 (1986) to California HPGN (Above 37\xC2\xB0 Latitude)"));
}

TEST(Projections, SixInTheOrderInWhichTheyAreOffered) {
    const Projection expected[] = {
        {"Transverse Mercator", ProjectionGroup::OneParallel, "Meters"},
        {"Lambert Conformal Conic - One Parallel", ProjectionGroup::OneParallel, "Meters"},
        {"Lambert Conformal Conic - Two Parallels", ProjectionGroup::TwoParallels, "Meters"},
        {"Oblique Mercator - Hotine", ProjectionGroup::Hotine, "Meters"},
        {"Transverse Mercator - NAD 27 Equations", ProjectionGroup::OneParallel, "U.S. Survey Feet"},
        {"Lambert Conformal Conic - NAD 27 Equations", ProjectionGroup::TwoParallels, "U.S. Survey Feet"},
    };
    ASSERT_EQ(Projections().size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(Projections()[i].name, expected[i].name);
        EXPECT_EQ(Projections()[i].group, expected[i].group);
        EXPECT_EQ(Projections()[i].unit, expected[i].unit);
        EXPECT_EQ(FindProjection(expected[i].name), &Projections()[i]);
    }
    EXPECT_EQ(FindProjection("transverse mercator"), nullptr);
    EXPECT_EQ(FindProjection(""), nullptr);
}

}  // namespace
}  // namespace tarvek::test
