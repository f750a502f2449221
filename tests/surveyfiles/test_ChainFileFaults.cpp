// Points-and-chains, project, edited and calculated files that are broken.

#include "brokenFiles.hpp"

namespace tarvek::test {
namespace {

constexpr const char* BlankLine = "An Tarvek Points and Chains File can not contain blank lines.";

using ChainFileFaults = BrokenFilesTest;

TEST_F(ChainFileFaults, AreToldForBrokenPointsAndChainsFiles) {
    ExpectBrokenFilesTold({.read = ReadPointsAndChainsFile,
                           .lineFault = "Invalid Tarvek Points and Chains File",
                           .blankLine = BlankLine,
                           .fieldFault = "Invalid Tarvek Points and Chains File",
                           .easting = "XX:",
                           .northing = "YY:",
                           .elevation = "ZZ:"});
}

TEST_F(ChainFileFaults, AreToldForBrokenProjectFiles) {
    for (const bool isControl : {false, true})
        ExpectBrokenFilesTold({.read = ReadProjectFile,
                               .lineFault = "Invalid Tarvek File",
                               .blankLine = BlankLine,
                               .fieldFault = "Invalid Tarvek File",
                               .easting = isControl ? "XC:" : "XX:",
                               .northing = isControl ? "YC:" : "YY:",
                               .elevation = isControl ? "ZC:" : "ZZ:"});
}

// An ellipsoid height goes through single precision in these families, and one that it can not hold is a
// fault.
TEST_F(ChainFileFaults, OfALargeEllipsoidHeightLeaveTheTablesUntouched) {
    const std::string path = folder.Put("input", Lines({"AC:PR", "AC:PD", "PN:1", "HE:3.5e38"}));
    for (const auto read : {ReadPointsAndChainsFile, ReadProjectFile}) {
        Tables() = {};
        FillInput("BEFORE");
        EXPECT_EQ(FaultOf([&] { read(path); }), Fault::Overflow);
        ExpectInputAsBefore("BEFORE");
        ExpectNothingTold(prompts);
    }
    EXPECT_TRUE(ReadControlFile(path));
    EXPECT_EQ(Tables().InputPoints[0].HE, 3.5e38);
}

}  // namespace
}  // namespace tarvek::test
