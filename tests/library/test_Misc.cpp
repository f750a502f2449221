#include "library/modMisc.hpp"

#include <chrono>
#include <fstream>

#include "library/libraryFolder.hpp"
#include "library/modErrorState.hpp"
#include "platform/modFaults.hpp"

namespace tarvek::test {
namespace {

using Texts = std::vector<std::string>;

Texts TextsOf(const ComboBoxList& list) {
    Texts texts;
    for (const ComboBoxItem& item : list.Items()) texts.push_back(item.text);
    return texts;
}

constexpr int SubscriptOutOfRange = 9;
constexpr int TypeMismatch = 13;

Texts CoordinateSystems() {
    ComboBoxList list;
    list.Add("left over");
    EXPECT_TRUE(LOAD_CS_ComboBoxList(list));
    return TextsOf(list);
}

Texts ZonesOf(bool inputSide, std::string_view coordinateSystem) {
    ComboBoxList list;
    list.Add("left over");
    EXPECT_TRUE(LOAD_Zones_ComboBoxList(list, inputSide, coordinateSystem));
    return TextsOf(list);
}

Texts DatumsOf(bool inputSide, bool horizontal, bool geographic, bool only3D) {
    ComboBoxList list;
    list.Add("left over");
    LOAD_Datums_ComboBoxList(list, inputSide, horizontal, geographic, only3D);
    return TextsOf(list);
}

TEST(LoadCS, EachSystemOnceInOrderOfFirstAppearance) {
    const LibraryFolder folder;
    folder.PutZones("[B - b~1]\n[A~x]\n[B - b~2]\n[A ~y]\n[a~z]\n");
    EXPECT_EQ(CoordinateSystems(), (Texts{"B - b", "A", "a"}));
}

TEST(LoadCS, HiddenZonesStillMakeTheirSystemAppear) {
    const LibraryFolder folder;
    folder.PutZones("[A~x]\nShow In=0\nShow Out=0\n");
    EXPECT_EQ(CoordinateSystems(), Texts{"A"});
}

TEST(LoadCS, SectionWithoutTildeStopsTheLoad) {
    const LibraryFolder folder;
    folder.PutZones("[A~x]\n[B]\n[C~y]\n");
    ComboBoxList list;
    CLEAR_ErrorState();
    EXPECT_FALSE(LOAD_CS_ComboBoxList(list));
    EXPECT_EQ(TextsOf(list), Texts{"A"});
    EXPECT_EQ(GET_ErrorState().number, 1);
    EXPECT_EQ(GET_ErrorState().description, "Error loading coordinate systems.");
    EXPECT_EQ(GET_ErrorState().source, "modMisc.LOAD_CS_ComboBoxList");
    EXPECT_EQ(GET_ErrorMessage(),
              "Error: Error loading coordinate systems.\r\nFunction: modMisc.LOAD_CS_ComboBoxList");
    CLEAR_ErrorState();
    EXPECT_EQ(GET_ErrorState().number, 0);
}

TEST(LoadCS, NameCutBeforeItsTildeIsAFailure) {
    const LibraryFolder folder;
    std::string zones;
    for (int i = 0; i < 2999; ++i) zones += "[" + std::to_string(1'000'000 + i) + "~z]\n";
    folder.PutZones(zones + "[ABC~z]\n");
    EXPECT_EQ(CoordinateSystems().size(), 3000U);
    folder.PutZones(zones + "[ABCDEF~z]\n");  // cut to "ABCDEF~"
    EXPECT_EQ(CoordinateSystems().back(), "ABCDEF");
    folder.PutZones(zones + "[ABCDEFG~z]\n");  // cut to "ABCDEFG"
    ComboBoxList list;
    EXPECT_FALSE(LOAD_CS_ComboBoxList(list));
    EXPECT_EQ(list.Count(), 2999);
}

TEST(LoadCS, MissingOrEmptyFileGivesAnEmptyList) {
    const LibraryFolder folder;
    EXPECT_TRUE(CoordinateSystems().empty());
    EXPECT_TRUE(ZonesOf(true, "A").empty());
    EXPECT_TRUE(DatumsOf(true, true, true, false).empty());
    EXPECT_EQ(DatumsOf(true, false, true, false), Texts{"None"});
    folder.PutZones("");
    EXPECT_TRUE(CoordinateSystems().empty());
}

TEST(LoadZones, ShowFlagOfTheSideDecides) {
    const LibraryFolder folder;
    folder.PutZones("[A~x]\nShow In=0\nShow Out=1\n[A~y]\n[A~z]\nShow In=\nShow Out=2\n[B~x]\nShow In=1\n");
    EXPECT_EQ(ZonesOf(true, "A"), (Texts{"y", "z"}));
    EXPECT_EQ(ZonesOf(false, "A"), (Texts{"x", "y"}));
    EXPECT_TRUE(ZonesOf(true, "a").empty());
}

TEST(LoadZones, NameIsPartedAtTheFirstTilde) {
    const LibraryFolder folder;
    folder.PutZones("[A - first~B - second]\n[A~b~c]\n[ A ~ d ]\n");
    EXPECT_EQ(CoordinateSystems(), (Texts{"A - first", "A"}));
    EXPECT_EQ(ZonesOf(true, "A - first"), Texts{"B - second"});
    EXPECT_EQ(ZonesOf(true, "A"), (Texts{"b~c", "d"}));
}

TEST(LoadZones, SectionWithoutTildeStopsTheLoad) {
    const LibraryFolder folder;
    folder.PutZones("[A~x]\n[B]\n[A~y]\n");
    ComboBoxList list;
    EXPECT_FALSE(LOAD_Zones_ComboBoxList(list, true, "A"));
    EXPECT_EQ(TextsOf(list), Texts{"x"});
    EXPECT_EQ(GET_ErrorState().number, 1);
    EXPECT_EQ(GET_ErrorMessage(), "Error: Error loading zones.\r\nFunction: modMisc.LOAD_Zones_ComboBoxList");
}

TEST(LoadZones, ShowFlagThatIsNoNumberIsAFault) {
    const LibraryFolder folder;
    folder.PutZones("[A~w]\n[A~x]\nShow In=yes\n[B~y]\n");
    ComboBoxList list;
    EXPECT_EQ(FaultNumberOf([&] { LOAD_Zones_ComboBoxList(list, true, "A"); }), TypeMismatch);
    EXPECT_EQ(TextsOf(list), Texts{"w"});
    // The flags of other systems are not read.
    EXPECT_EQ(ZonesOf(true, "B"), Texts{"y"});
}

TEST(LoadZones, FlagIsThatOfTheFirstSectionOfTheName) {
    const LibraryFolder folder;
    folder.PutZones("[A~x]\nShow In=0\n[a~X]\nShow In=1\n");
    EXPECT_TRUE(ZonesOf(true, "A").empty());
    EXPECT_TRUE(ZonesOf(true, "a").empty());
}

// One datum of each type, and one of a type that is none.
constexpr std::string_view DatumOfEachType =
    "[H]\nType=Horizontal\nShow In=1\nShow Out=0\n"
    "[V]\nType=Vertical\nShow In=1\nShow Out=0\n"
    "[D]\nType=3D\nShow In=1\nShow Out=1\n"
    "[O]\nType=other\nShow In=1\nShow Out=0\n"
    "[hidden]\nType=Horizontal\nShow In=0\nShow Out=0\n";

TEST(LoadDatums, TypesPassByKindOfList) {
    const LibraryFolder folder;
    folder.PutDatums(DatumOfEachType);
    for (const bool only3D : {false, true}) {
        EXPECT_EQ(DatumsOf(true, true, true, only3D), (Texts{"H", "D", "O"}));
        EXPECT_EQ(DatumsOf(true, true, false, only3D), Texts{"H"});
        EXPECT_EQ(DatumsOf(true, false, false, only3D), (Texts{"None", "V"}));
    }
    EXPECT_EQ(DatumsOf(true, false, true, true), (Texts{"None", "D"}));
    EXPECT_EQ(DatumsOf(true, false, true, false), (Texts{"None", "V", "D", "O"}));
    EXPECT_EQ(DatumsOf(false, true, true, false), Texts{"D"});
}

TEST(LoadDatums, TextNoneOutlastsTheFilling) {
    const LibraryFolder folder;
    folder.PutDatums(DatumOfEachType);
    ComboBoxList list;
    list.Add("None");
    list.SetListIndex(0);
    LOAD_Datums_ComboBoxList(list, true, false, false, false);
    EXPECT_EQ(list.Text(), "None");
    EXPECT_EQ(list.ListIndex(), 0);
    LOAD_Datums_ComboBoxList(list, true, true, false, false);
    EXPECT_EQ(list.Text(), "None");
    EXPECT_EQ(list.ListIndex(), -1);
    list.SetListIndex(0);
    LOAD_Datums_ComboBoxList(list, true, false, false, false);
    EXPECT_EQ(list.Text(), "");
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST(LoadDatums, ShowFlagThatIsMissingOrNoNumberIsAFault) {
    for (const std::string_view flag : {"", "Show In=\n", "Show In=yes\n", "Show Out=1\n"}) {
        const LibraryFolder folder;
        // Also where the type would not pass.
        folder.PutDatums("[A]\nType=Horizontal\nShow In=1\n[B]\nType=Vertical\n" + std::string(flag));
        ComboBoxList list;
        EXPECT_EQ(FaultNumberOf([&] { LOAD_Datums_ComboBoxList(list, true, true, false, false); }),
                  TypeMismatch);
        EXPECT_EQ(TextsOf(list), Texts{"A"});
    }
}

TEST(LoadUnits, LinearUnitsOrAngularFormats) {
    ComboBoxList list;
    list.Add("left over");
    LOAD_Units_ComboBoxList(list, true);
    EXPECT_EQ(TextsOf(list), (Texts{"Meters", "U.S. Survey Feet", "International Feet"}));
    LOAD_Units_ComboBoxList(list, false);
    EXPECT_EQ(TextsOf(list), (Texts{"DDD MM SS.ssss", "DDD.MMSSssss", "DDD.dddddd", "DDD MM.mmmm"}));
}

TEST(LoadLocalDatums, YearsAreTheItemData) {
    ComboBoxList list;
    list.Add("left over");
    LOAD_LocalDatums_ComboBoxList(list);
    ASSERT_EQ(list.Count(), 44);
    EXPECT_EQ(list.Items()[0].text, "NAD 1927");
    EXPECT_EQ(list.Items()[0].data, 1927);
    EXPECT_EQ(list.Items()[1].text, "NAD 1983");
    EXPECT_EQ(list.Items()[1].data, 1983);
    EXPECT_EQ(list.Items()[2].text, "HPGN 1984");
    EXPECT_EQ(list.Items()[2].data, 1984);
    EXPECT_EQ(list.Items()[43].text, "HPGN 2025");
    EXPECT_EQ(list.Items()[43].data, 2025);
}

TEST(LoadLocalZones, LinesWithTheirLeadingNumber) {
    const LibraryFolder folder;
    ASSERT_EQ(::system(("mkdir " + folder.File("Lumara")).c_str()), 0);
    folder.Put(
        "Lumara/zones.txt",
        "# zones\r\n5001 Alaska 1  \r\n 5002 x\r\n12x4 y\r\nnone\r\n\r\n #no comment\r\n12345\r\n07 last");
    ComboBoxList list;
    list.Add("left over");
    LOAD_LocalZones_ComboBoxList(list, folder.Path());
    EXPECT_EQ(TextsOf(list),
              (Texts{"5001 Alaska 1", " 5002 x", "12x4 y", "none", "", " #no comment", "12345", "07 last"}));
    const int numbers[] = {5001, 500, 12, 0, 0, 0, 1234, 7};
    for (std::size_t i = 0; i < std::size(numbers); ++i) EXPECT_EQ(list.Items()[i].data, numbers[i]) << i;
}

TEST(LoadLocalZones, MissingFileIsAFault) {
    const LibraryFolder folder;
    ComboBoxList list;
    EXPECT_EQ(FaultNumberOf([&] { LOAD_LocalZones_ComboBoxList(list, folder.Path()); }), 53);
}

TEST(ZoneDefaults, AreThreeKeysOfTheZone) {
    const CleanLibraryFolder folder;
    const ZoneDefaults west = GET_ZoneDefaults("VEL - Velmora State Plane", "W - West");
    EXPECT_EQ(west.horizontalDatum, "NAD 27");
    EXPECT_EQ(west.verticalDatum, "");
    EXPECT_EQ(west.linearUnits, "U.S. Survey Feet");
    EXPECT_EQ(GET_ZoneDefaults("VEL - Velmora State Plane", "E - East").verticalDatum, "NAVD 88");
    EXPECT_EQ(GET_ZoneDefaults("VEL", "W").horizontalDatum, "");
}

TEST(FindZoneSection, ShortNamesInAnyLetterCase) {
    const CleanLibraryFolder folder;
    EXPECT_EQ(FIND_ZoneSection(" vel ", "w"), "VEL - Velmora State Plane~W - West");
    EXPECT_EQ(FIND_ZoneSection("AK", "5001"), "AK - Alaska~5001 - Zone 1");
    EXPECT_EQ(FIND_ZoneSection("AK", "W"), "");
    EXPECT_EQ(FIND_ZoneSection("VEL - Velmora State Plane", "W"), "");
}

TEST(FindZoneSection, PartWithoutHyphenIsNeverFound) {
    const LibraryFolder folder;
    folder.PutZones("[A - a~B]\n[A~B - b]\n[A - 2~B-c]\n[A - 3~B - d]\n");
    EXPECT_EQ(FIND_ZoneSection("A", "B"), "A - 2~B-c");
}

TEST(FindZoneSection, SectionWithoutTildeIsAFault) {
    const LibraryFolder folder;
    folder.PutZones("[A - a~B - b]\n[C]\n[D - d~E - e]\n");
    EXPECT_EQ(FIND_ZoneSection("A", "B"), "A - a~B - b");
    EXPECT_EQ(FaultNumberOf([] { FIND_ZoneSection("D", "E"); }), SubscriptOutOfRange);
}

TEST(FindZoneSection, MissingFileGivesNothing) {
    const LibraryFolder folder;
    EXPECT_EQ(FIND_ZoneSection("A", "B"), "");
}

TEST(FixedNumberText, SmallValuesHaveNoExponent) {
    EXPECT_EQ(GET_FixedNumberText(0.00335281066474748), "0.00335281066474748");
    EXPECT_EQ(GET_FixedNumberText(1.23456789012345e-5), "0.0000123456789012345");
    EXPECT_EQ(GET_FixedNumberText(1.5e-20), "0.000000000000000000015");
    EXPECT_EQ(GET_FixedNumberText(0.5), "0.5");
    EXPECT_EQ(GET_FixedNumberText(0), "0");
    EXPECT_EQ(GET_FixedNumberText(6378137), "6378137");
    EXPECT_EQ(GET_FixedNumberText(298.257222101), "298.257222101");
    EXPECT_EQ(GET_FixedNumberText(1.0 / 298.257222101), "0.00335281068118232");
}

TEST(FixedNumberText, OddResultsOfLargeAndNegativeValues) {
    EXPECT_EQ(GET_FixedNumberText(-1.5), "0-1.5");
    EXPECT_EQ(GET_FixedNumberText(-1.5e20), "0-1.5E+20");
    EXPECT_EQ(GET_FixedNumberText(-1e20), "0-1E+20");
    EXPECT_EQ(GET_FixedNumberText(1.25e16), "0.000000000000000125");
    EXPECT_EQ(FaultNumberOf([] { GET_FixedNumberText(1e-20); }), 5);
    EXPECT_EQ(FaultNumberOf([] { GET_FixedNumberText(1e20); }), 5);
}

TEST(FileNames, LastPartBehindEitherSeparator) {
    EXPECT_EQ(GET_FileName("C:\\a\\b.c"), "b.c");
    EXPECT_EQ(GET_FileName("/a/b.c"), "b.c");
    EXPECT_EQ(GET_FileName("a/b\\c/d"), "d");
    EXPECT_EQ(GET_FileName("a\\"), "");
    EXPECT_EQ(GET_FileName("plain"), "plain");
    EXPECT_EQ(GET_FileName(""), "");
}

TEST(FileNames, FileSpecHasFolderNameAndExtension) {
    for (const char* text : {"a\\b.c", "/b.c", "a.b\\c.d", "a/b/c.d.e", "/..c"})
        EXPECT_TRUE(IS_FileSpec(text)) << text;
    for (const char* text : {"", "b.c", "a\\b", "a\\", "a\\b.", "a\\.c", "a.b\\c", "a.b/", "\\", "."})
        EXPECT_FALSE(IS_FileSpec(text)) << text;
}

// ---- a library of 400 zones

std::string LargeZones() {
    std::string zones;
    for (int i = 0; i < 400; ++i) {
        const std::string number = std::to_string(i);
        zones += "[C" + std::to_string(i / 8) + " - System~" + number + " - Zone]\r\n";
        for (const char* key :
             {"Full Name", "Horizontal Datum", "Computational Ellipsoid", "Vertical Datum", "Projection",
              "Central Latitude", "Central Longitude", "False Northing", "False Easting", "Scale Factor",
              "Positive Latitude Direction", "Positive Longitude Direction", "Linear Units"})
            zones += std::string(key) + "=some value " + number + "\r\n";
        zones += "Show In=1\r\nShow Out=1\r\n\r\n";
    }
    return zones;
}

std::string LargeDatums() {
    std::string datums;
    for (int i = 0; i < 60; ++i)
        datums += "[D" + std::to_string(i) + "]\r\nType=" + (i % 2 == 0 ? "Horizontal" : "3D") +
                  "\r\nEllipsoid=GRS 80\r\nShow In=1\r\nShow Out=1\r\n\r\n";
    return datums;
}

// Every list of a conversion dialog, both sides.
int LoadEveryList() {
    int count = 0;
    ComboBoxList list;
    for (const bool inputSide : {true, false}) {
        LOAD_CS_ComboBoxList(list);
        count += list.Count();
        LOAD_Zones_ComboBoxList(list, inputSide, "C7 - System");
        count += list.Count();
        LOAD_Datums_ComboBoxList(list, inputSide, true, true, false);
        count += list.Count();
        LOAD_Datums_ComboBoxList(list, inputSide, false, true, false);
        count += list.Count();
        LOAD_Units_ComboBoxList(list, true);
        count += list.Count();
        LOAD_Units_ComboBoxList(list, false);
        count += list.Count();
    }
    return count;
}

TEST(ListLoaders, ListsOf400ZonesAreFilledInUnder20Milliseconds) {
    const LibraryFolder folder;
    folder.PutZones(LargeZones());
    folder.PutDatums(LargeDatums());
    auto best = std::chrono::steady_clock::duration::max();
    for (int round = 0; round < 10; ++round) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(LoadEveryList(), 2 * (50 + 8 + 60 + 31 + 3 + 4));
        best = std::min(best, std::chrono::steady_clock::now() - start);
    }
    const double milliseconds = std::chrono::duration<double, std::milli>(best).count();
    RecordProperty("milliseconds", std::to_string(milliseconds));
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LT(milliseconds, 20);
#endif
}

// The bytes that this process has read so far, as the kernel counts them; -1 where it does not.
long BytesRead() {
    std::ifstream counters("/proc/self/io");
    std::string name;
    long value = 0;
    while (counters >> name >> value)
        if (name == "rchar:") return value;
    return -1;
}

TEST(ListLoaders, EachReadsItsFileOnce) {
    if (BytesRead() < 0) GTEST_SKIP() << "no counters of this process";
    const LibraryFolder folder;
    const std::string zones = LargeZones();
    folder.PutZones(zones);
    ComboBoxList list;
    const auto expectOnce = [&](const char* what, auto call) {
        const long before = BytesRead();
        call();
        const long count = BytesRead() - before;
        EXPECT_GE(count, static_cast<long>(zones.size())) << what;
        EXPECT_LT(count, static_cast<long>(zones.size()) * 3 / 2) << what;
    };
    expectOnce("systems", [&] { LOAD_CS_ComboBoxList(list); });
    expectOnce("zones", [&] { LOAD_Zones_ComboBoxList(list, true, "C7 - System"); });
    expectOnce("defaults", [] { GET_ZoneDefaults("C7 - System", "56 - Zone"); });
    expectOnce("section", [] { FIND_ZoneSection("C49", "399"); });
}

}  // namespace
}  // namespace tarvek::test
