#pragma once
// Broken files, as every family of survey files must take them: empty, without line ends, of strange bytes,
// very long, of numbers that are none.

#include <string>
#include <vector>

#include "surveyTest.hpp"

namespace tarvek::test {

// A family of files, by its reader and by the words of its refusals.
struct BrokenFamily {
    bool (*read)(const std::string& path);
    const char* lineFault;   // begins the text of a refused line
    const char* blankLine;   // ends the text of a blank one
    const char* fieldFault;  // begins the text of a refused value
    const char* easting;     // tags
    const char* northing;
    const char* elevation;
};

struct BrokenFile {
    const char* name;
    std::string bytes;
    std::string told;  // without caption and path; empty where the file is read
    std::string pn;    // what the first point holds
    std::string kept;  // header lines or other lines of the first point
    std::size_t points = 1;
};

inline std::string EveryByte() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

// The lines of EveryByte(), cut at its LF (10) and CR (13), as they are kept.
inline std::string EveryByteKept() {
    const std::string bytes = EveryByte();
    return bytes.substr(0, 10) + "\r\n" + bytes.substr(11, 2) + "\r\n" + bytes.substr(14);
}

inline std::vector<BrokenFile> BrokenFiles(const std::string& path, const BrokenFamily& family) {
    const std::string nul(1, '\0');
    const auto fieldFault = [&](int line, const char* reason) {
        return family.fieldFault + (": '" + path) + "'\nError on Line: " + std::to_string(line) + "\n" +
               reason;
    };
    const auto blankLine = [&](int line) {
        return family.lineFault + (" '" + path) + "'.\nError on line " + std::to_string(line) + ".\n" +
               family.blankLine;
    };
    return {
        {"empty", "", "", "", ""},
        {"blanks alone", "     ", blankLine(1), "", ""},
        {"a line end alone", "\r\n", blankLine(1), "", ""},
        {"no line end", "PN:A", "", "A", ""},
        {"CR alone", "AC:PR\rAC:OS\rPN:A\rCM:x\r", "", "A", "CM:x"},
        {"LF alone", "AC:PR\nAC:OS\nPN:A\nCM:x\n", "", "A", "CM:x"},
        {"LF CR", "PN:A\n\rCM:x", blankLine(2), "", ""},
        {"byte order mark", "\xEF\xBB\xBFPN:A\r\n", "", "A", ""},
        {"byte order mark alone", "\xEF\xBB\xBF", "", "", ""},
        {"UTF-16", "\xFF\xFE" + std::string("P\0N\0:\0A\0", 8), "", "",
         "\xFF\xFE" + std::string("P\0N\0:\0A\0", 8)},
        {"NUL alone", nul, "", "", nul},
        {"NUL in a name", "PN:" + nul + "A" + nul, "", nul + "A" + nul, ""},
        {"NUL in a tag", "P" + nul + "N:A", "", "", "P" + nul + "N:A"},
        {"NUL behind a number", family.northing + ("1" + nul),
         fieldFault(1, "Northing Coordinate must be numeric."), "", ""},
        {"every byte", EveryByte(), "", "", EveryByteKept()},
        {"a long line", "CM:" + std::string(50'000'000, 'x'), "", "", "CM:" + std::string(50'000'000, 'x')},
        {"a long number", std::string("PN:A\r\n") + family.northing + std::string(50'000'000, '1'),
         fieldFault(2, "Northing Coordinate must be numeric."), "", ""},
        {"a long name", "PN:" + std::string(50'000'000, 'A'),
         fieldFault(1, "Point Name can not exceeed 8 characters."), "", ""},
        {"1e400", family.elevation + std::string("1e400"),
         fieldFault(1, "Elevation Coordinate must be numeric."), "", ""},
        {"nan", family.easting + std::string("nan"), fieldFault(1, "Easting Coordinate must be numeric."), "",
         ""},
        {"inf", "SF:inf", fieldFault(1, "Scale Factor must be numeric."), "", ""},
        {"many records", Lines({"AC:A", "AC:B", "AC:C"}), "", "", "", 4},
    };
}

class BrokenFilesTest : public SurveyTest {
  protected:
    // Tables that a refusal must leave as they are.
    static void FillInput(const std::string& name) {
        Tables().InputHeader.PR = "PR:before";
        PointRecord point;
        point.PN = name;
        Tables().InputPoints.Append(point);
        Tables().InputChains.Append(ChainNamed("before"));
    }

    static void ExpectInputAsBefore(const std::string& name) {
        EXPECT_EQ(Tables().InputHeader.PR, "PR:before");
        ASSERT_EQ(Tables().InputPoints.size(), 1U);
        EXPECT_EQ(Tables().InputPoints[0].PN, name);
        EXPECT_EQ(Tables().InputChains.size(), 1U);
    }

    void ExpectBrokenFilesTold(const BrokenFamily& family) {
        const std::string path = folder.File("input");
        for (const BrokenFile& file : BrokenFiles(path, family)) {
            SCOPED_TRACE(file.name);
            Tables() = {};
            FillInput("BEFORE");
            prompts.told.clear();
            folder.Put("input", file.bytes);
            EXPECT_EQ(family.read(path), file.told.empty());
            EXPECT_TRUE(ReadBytes(path) == file.bytes);
            EXPECT_EQ(folder.Names(), std::vector<std::string>{"input"});
            if (!file.told.empty()) {
                ASSERT_EQ(prompts.told.size(), 1U);
                EXPECT_EQ(prompts.told[0].text, file.told);
                EXPECT_EQ(prompts.told[0].icon, Icon::Exclamation);
                ExpectInputAsBefore("BEFORE");
                continue;
            }
            ExpectNothingTold(prompts);
            ASSERT_EQ(Tables().InputPoints.size(), file.points);
            EXPECT_TRUE(Tables().InputPoints[0].PN == file.pn);
            EXPECT_TRUE(Tables().InputPoints[0].Others == file.kept);
            EXPECT_EQ(Tables().InputHeader.HeaderLines, "");
        }
    }
};

}  // namespace tarvek::test
