// The parameters of a zone from the library: what is read, in which order it is refused, and how the zone is
// found.

#include "coordmath/modZoneParameters.hpp"

#include <optional>
#include <string>
#include <vector>

#include "coordmath/projectionTest.hpp"
#include "coordmath/zoneLibrary.hpp"

namespace tarvek::test {
namespace {

constexpr double None = -99999.0;
constexpr double NoAngle = 1e-14;  // of angles that are told in another unit

using Texts = std::vector<std::string>;

class Zones : public ::testing::Test {
  protected:
    std::optional<ZoneParameters> Read(std::string_view zone, std::string_view datum = "NAD 83") {
        return ReadZoneParameters(TestSystem, zone, datum);
    }
    ZoneParameters Known(std::string_view zone, std::string_view datum = "NAD 83") {
        const std::optional<ZoneParameters> parameters = Read(zone, datum);
        EXPECT_TRUE(parameters.has_value());
        return parameters.value_or(ZoneParameters());
    }

    static std::string InvalidAngle(const std::string& text) {
        return "Invalid Angle '" + text + "'. Minutes portion must be positive and not exceed 59.";
    }
    // Spoils angles, each so that its message tells which one it is.
    void SpoilAngles(std::string_view zone, const Texts& keys) {
        for (std::size_t i = 0; i < keys.size(); ++i) library.Change(zone, keys[i], BadAngle(i));
    }
    static std::string BadAngle(std::size_t number) { return std::to_string(number + 1) + ".600000000"; }
    void ExpectToldInOrder(std::size_t count) {
        ASSERT_EQ(prompts.told.size(), count);
        for (std::size_t i = 0; i < count; ++i) {
            EXPECT_EQ(prompts.told[i].text, InvalidAngle(BadAngle(i)));
            EXPECT_EQ(prompts.told[i].caption, "Invalid Angle");
        }
    }
    void ExpectTypeMismatch(std::string_view zone) {
        EXPECT_EQ(FaultOf([&] { Read(zone); }), Fault::TypeMismatch);
    }
    void ExpectUnknown(std::string_view coordinateSystem, std::string_view zone) {
        prompts.told.clear();
        EXPECT_FALSE(ReadZoneParameters(coordinateSystem, zone, "NAD 83").has_value());
        ExpectToldOnly(prompts,
                       "Unknown Coordinate System or Zone '" + std::string(coordinateSystem) + "' and '" +
                           std::string(zone) + "'.",
                       "Coordiante System Error");
    }

    ZoneLibrary library;
    ScriptedPrompts prompts;
};

// ---- What is read ----

TEST_F(Zones, ATransverseMercatorZoneHasOriginScaleAndFalseOrigin) {
    const ZoneParameters zone = Known(TransverseZone);
    EXPECT_EQ(zone.projection->name, "Transverse Mercator");
    EXPECT_EQ(zone.a, 6378137);
    EXPECT_EQ(zone.e, 0.0818191910428);
    ExpectNear(zone.phi0, ExactRadians(30, 30), NoAngle);
    ExpectNear(zone.lam0, ExactRadians(85, 50), NoAngle);
    EXPECT_EQ(zone.k0, 0.99996);
    EXPECT_EQ(zone.FN, 1000);
    EXPECT_EQ(zone.FE, 200000);
    ExpectNothingTold(prompts);
}

TEST_F(Zones, AZoneOfOneParallelHasItsScale) {
    const ZoneParameters zone = Known(OneParallelZone);
    EXPECT_EQ(zone.projection->name, "Lambert Conformal Conic - One Parallel");
    ExpectNear(zone.phi0, ExactRadians(41, 30), NoAngle);
    EXPECT_EQ(zone.k0, 0.9998);
    EXPECT_EQ(zone.FN, 300000);
}

TEST_F(Zones, AZoneOfTwoParallelsHasBothAndNeedsNoScale) {
    const ZoneParameters zone = Known(TwoParallelsZone);
    EXPECT_EQ(zone.projection->name, "Lambert Conformal Conic - Two Parallels");
    ExpectNear(zone.phi0, ExactRadians(39, 50), NoAngle);
    ExpectNear(zone.northParallel, ExactRadians(43), NoAngle);
    ExpectNear(zone.southParallel, ExactRadians(40), NoAngle);
}

TEST_F(Zones, AnObliqueZoneHasAnAzimuth) {
    const ZoneParameters zone = Known(ObliqueZone);
    EXPECT_EQ(zone.projection->name, "Oblique Mercator - Hotine");
    ExpectNear(zone.alpha, -ExactRadians(36, 52, 11.6315L), NoAngle);
    EXPECT_EQ(zone.k0, 0.9999);
    EXPECT_EQ(zone.FN, -5000000);
}

TEST_F(Zones, ZonesOf1927HaveTheirLengthsInFeet) {
    EXPECT_EQ(Known(TransverseZone27).projection->name, "Transverse Mercator - NAD 27 Equations");
    EXPECT_EQ(Known(TransverseZone27).FE, 500000);
    EXPECT_EQ(Known(LambertZone27).projection->name, "Lambert Conformal Conic - NAD 27 Equations");
    EXPECT_EQ(Known(LambertZone27).FE, 2000000);
    ExpectNear(Known(LambertZone27).northParallel, ExactRadians(42, 49), NoAngle);
    ExpectNear(Known(LambertZone27).southParallel, ExactRadians(41, 51), NoAngle);
}

TEST_F(Zones, FalseOriginsAreCarriedToTheUnitOfTheEquations) {
    for (const std::string_view zone : {TransverseZone, TwoParallelsZone}) {
        library.Change(zone, "Linear Units", "U.S. Survey Feet");
        library.Change(zone, "False Northing", "3937");
        library.Change(zone, "False Easting", "-7874");
        EXPECT_DOUBLE_EQ(Known(zone).FN, 1200);
        EXPECT_DOUBLE_EQ(Known(zone).FE, -2400);
        library.Change(zone, "Linear Units", "International Feet");
        EXPECT_EQ(Known(zone).FN, 3937 * 0.3048);
        library.Change(zone, "Linear Units", "Chains");  // an unknown unit leaves the number as it is
        EXPECT_EQ(Known(zone).FN, 3937);
    }
    for (const std::string_view zone : {TransverseZone27, LambertZone27}) {
        library.Change(zone, "Linear Units", "Meters");
        library.Change(zone, "False Easting", "1200");
        EXPECT_DOUBLE_EQ(Known(zone).FE, 3937);
        library.Change(zone, "Linear Units", "International Feet");
        EXPECT_EQ(Known(zone).FE, 1200 * 0.999998);
    }
}

TEST_F(Zones, LatitudesTurnNorthAndLongitudesWest) {
    for (const std::string_view zone : {TwoParallelsZone, LambertZone27}) {
        const ZoneParameters northWest = Known(zone);
        library.Change(zone, "Positive Latitude Direction", "S");
        library.Change(zone, "Positive Longitude Direction", "E");
        const ZoneParameters southEast = Known(zone);
        EXPECT_EQ(southEast.phi0, -northWest.phi0);
        EXPECT_EQ(southEast.northParallel, -northWest.northParallel);
        EXPECT_EQ(southEast.southParallel, -northWest.southParallel);
        ExpectNear(southEast.lam0, 2 * Pi - ExactRadians(100), 2e-14);
        library.Change(zone, "Central Longitude", "-100.000000000");
        ExpectNear(Known(zone).lam0, ExactRadians(100), 2e-14);
        library.Change(zone, "Positive Longitude Direction", "-W");
        ExpectNear(Known(zone).lam0, ExactRadians(100), 2e-14);
    }
}

TEST_F(Zones, AnAzimuthDoesNotTurn) {
    const double azimuth = Known(ObliqueZone).alpha;
    library.Change(ObliqueZone, "Positive Latitude Direction", "S");
    library.Change(ObliqueZone, "Positive Longitude Direction", "E");
    EXPECT_EQ(Known(ObliqueZone).alpha, azimuth);
}

TEST_F(Zones, AnUnknownDirectionLeavesNoAngle) {
    library.Change(TransverseZone, "Positive Latitude Direction", "n");
    library.Change(TransverseZone, "Positive Longitude Direction", "");
    EXPECT_EQ(Known(TransverseZone).phi0, None);
    EXPECT_EQ(Known(TransverseZone).lam0, None);
    ExpectNothingTold(prompts);
}

TEST_F(Zones, TheZonesOwnEllipsoidComesBeforeThatOfTheDatum) {
    EXPECT_EQ(Known(TransverseZone, "NAD 83").a, 6378137);
    EXPECT_EQ(Known(TransverseZone, "NAD 27").a, 6378206.4);
    EXPECT_EQ(Known(TransverseZone, "NAD 27").e, 0.0822718542230);
    library.Change(TransverseZone, "Computational Ellipsoid", "Clarke 1866");
    EXPECT_EQ(Known(TransverseZone, "NAD 83").a, 6378206.4);
    EXPECT_EQ(Known(TransverseZone, "no such datum").a, 6378206.4);
}

TEST_F(Zones, SemiminorAxisAndFlatteningAreNotRead) {
    library.PutEllipsoids("[GRS 80]\nSemimajor Axis=10\nSemiminor Axis=x\nFlattening=\nEccentricity=0.5\n");
    EXPECT_EQ(Known(TransverseZone).a, 10);
    EXPECT_EQ(Known(TransverseZone).e, 0.5);
}

// ---- What is refused ----

TEST_F(Zones, RefusedAnglesAreToldInTheOrderOfTheirKeysAndStandAsNoValue) {
    SpoilAngles(TwoParallelsZone,
                {"Central Latitude", "Central Longitude", "Northern Parallel", "Southern Parallel"});
    const ZoneParameters zone = Known(TwoParallelsZone);
    ExpectToldInOrder(4);
    EXPECT_EQ(zone.phi0, None);
    EXPECT_EQ(zone.lam0, None);
    EXPECT_EQ(zone.northParallel, None);
    EXPECT_EQ(zone.southParallel, None);
    EXPECT_EQ(zone.FE, 500000);
}

TEST_F(Zones, ARefusedAzimuthIsToldAfterTheOrigin) {
    SpoilAngles(ObliqueZone, {"Central Latitude", "Central Longitude", "Azimuth"});
    const ZoneParameters zone = Known(ObliqueZone);
    ExpectToldInOrder(3);
    EXPECT_EQ(zone.alpha, None);
    EXPECT_EQ(zone.k0, 0.9999);
}

TEST_F(Zones, AnglesOfOtherProjectionsAreNotRead) {
    SpoilAngles(TransverseZone, {"Northern Parallel", "Southern Parallel", "Azimuth"});
    SpoilAngles(OneParallelZone, {"Northern Parallel", "Southern Parallel", "Azimuth"});
    SpoilAngles(TwoParallelsZone, {"Azimuth"});
    library.Change(TwoParallelsZone, "Scale Factor", "none");
    library.Change(LambertZone27, "Scale Factor", "none");
    for (const std::string_view zone : {TransverseZone, OneParallelZone, TwoParallelsZone, LambertZone27})
        EXPECT_TRUE(Read(zone).has_value());
    ExpectNothingTold(prompts);
}

TEST_F(Zones, AMissingOrImpossibleNumberIsATypeMismatch) {
    for (const char* key :
         {"Scale Factor", "False Northing", "False Easting", "Central Latitude", "Central Longitude"})
        for (const char* value : {"", "none", "1,5"}) {
            SCOPED_TRACE(std::string(key) + "=" + value);
            ZoneLibrary fresh;
            fresh.Change(TransverseZone, key, value);
            ExpectTypeMismatch(TransverseZone);
        }
    for (const std::string_view zone : {OneParallelZone, ObliqueZone, TransverseZone27}) {
        ZoneLibrary fresh;
        fresh.Change(zone, "Scale Factor", "");
        ExpectTypeMismatch(zone);
    }
    for (const char* key : {"Northern Parallel", "Southern Parallel"}) {
        ZoneLibrary fresh;
        fresh.Change(TwoParallelsZone, key, "");
        ExpectTypeMismatch(TwoParallelsZone);
    }
    ZoneLibrary fresh;
    fresh.Change(ObliqueZone, "Azimuth", "");
    ExpectTypeMismatch(ObliqueZone);
    ExpectNothingTold(prompts);
}

// A refusal is told up to the key whose fault ends the reading, and none behind it.
TEST_F(Zones, AFaultComesAtThePlaceOfItsKey) {
    SpoilAngles(ObliqueZone, {"Central Latitude", "Central Longitude", "Azimuth"});
    library.Change(ObliqueZone, "False Northing", "");
    ExpectTypeMismatch(ObliqueZone);
    ExpectToldInOrder(3);
    prompts.told.clear();
    library.Change(ObliqueZone, "Scale Factor", "");
    ExpectTypeMismatch(ObliqueZone);
    ExpectToldInOrder(2);
    prompts.told.clear();
    library.PutEllipsoids("[GRS 80]\nSemimajor Axis=6378137\n");
    ExpectTypeMismatch(ObliqueZone);
    ExpectNothingTold(prompts);
}

TEST_F(Zones, AnUnknownEllipsoidIsATypeMismatch) {
    EXPECT_EQ(FaultOf([&] { Read(TransverseZone, "no such datum"); }), Fault::TypeMismatch);
    library.Change(TransverseZone, "Computational Ellipsoid", "no such ellipsoid");
    ExpectTypeMismatch(TransverseZone);
    ExpectNothingTold(prompts);
}

// ---- How the zone is found ----

TEST_F(Zones, AZoneIsFoundByTheShortNamesOfItsParts) {
    for (const char* system : {"TST", "tst", " TST "})
        for (const char* zone : {"40", " 40"}) {
            SCOPED_TRACE(std::string(system) + "~" + zone);
            const auto parameters = ReadZoneParameters(system, zone, "NAD 83");
            ASSERT_TRUE(parameters.has_value());
            EXPECT_EQ(parameters->projection->name, "Oblique Mercator - Hotine");
        }
    ExpectNothingTold(prompts);
}

TEST_F(Zones, TheExactNameComesFirst) {
    library.PutZones(
        "[A - first~1 - one]\nProjection=Oblique Mercator - Hotine\n"
        "[A~1]\nProjection=Something of its own\n");
    const auto parameters = ReadZoneParameters("A", "1", "NAD 83");
    ASSERT_TRUE(parameters.has_value());
    EXPECT_EQ(parameters->projection, nullptr);
}

TEST_F(Zones, AnExactNameWithoutAProjectionIsLookedUpLoosely) {
    library.PutZones("[A~1]\nProjection=\n[A - first~1 - one]\nProjection=Something of its own\n");
    EXPECT_TRUE(ReadZoneParameters("A", "1", "NAD 83").has_value());
    ExpectNothingTold(prompts);
}

TEST_F(Zones, AnUnknownSystemOrZoneIsTold) {
    ExpectUnknown("TST - Test System", "99");
    ExpectUnknown("NONE", "10");
    ExpectUnknown("", "");
    ExpectUnknown("TST - Test System~10 - Transverse", "");
    library.PutZones("");
    ExpectUnknown("TST", "10");
}

TEST_F(Zones, AnotherProjectionIsNoZoneToComputeButNoRefusalEither) {
    for (const char* name : {"Mercator", "transverse mercator", "Transverse Mercator - NAD 83 Equations"}) {
        SCOPED_TRACE(name);
        library.Change(TransverseZone, "Projection", name);
        library.Change(TransverseZone, "Central Latitude", "1.600000000");
        const ZoneParameters zone = Known(TransverseZone);
        EXPECT_EQ(zone.projection, nullptr);
        EXPECT_EQ(zone.a, 6378137);
    }
    ExpectNothingTold(prompts);
}

}  // namespace
}  // namespace tarvek::test
