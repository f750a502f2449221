// Control files that are broken, faults of the run time, and outputs that are half written.

#include <unistd.h>

#include <cerrno>
#include <limits>

#include "platform/modFileCalls.hpp"
#include "surveyTest.hpp"

namespace tarvek {
namespace {

using test::ExpectNothingTold;
using test::ExpectToldOnly;
using test::Lines;

class ControlFileFaults : public test::SurveyTest {
  protected:
    static void FillInput(const std::string& name) {
        Tables().InputHeader.PR = "PR:before";
        PointRecord point;
        point.PN = name;
        Tables().InputPoints.Append(point);
        Tables().InputChains.Append(test::ChainNamed("before"));
    }

    static void ExpectInputAsBefore(const std::string& name) {
        EXPECT_EQ(Tables().InputHeader.PR, "PR:before");
        ASSERT_EQ(Tables().InputPoints.size(), 1U);
        EXPECT_EQ(Tables().InputPoints[0].PN, name);
        EXPECT_EQ(Tables().InputChains.size(), 1U);
    }

    // Appends a point to an output that is in meters, as the point is.
    static void AddPoint(const std::string& name, double northing) {
        PointRecord point;
        point.PN = name;
        point.Y = northing;
        point.X = 1;
        point.Z = 2;
        point.HorizontalUnits = point.VerticalUnits = "Meters";
        CoordSystemRef& system = Tables().OutputHeader.System;
        system.HorizontalUnits = system.VerticalUnits = "Meters";
        Tables().OutputPoints.Append(point);
    }

    void ExpectWriteFault(Fault fault) {
        try {
            WriteControlFile(folder.File("output.ctl"));
            ADD_FAILURE() << "no fault";
        } catch (const RuntimeFault& raised) {
            EXPECT_EQ(raised.Number(), fault) << raised.Text();
        }
    }
};

// Faults of the run time while reading

struct FaultCase {
    std::string_view line;
    Fault fault;
};

constexpr FaultCase FaultCases[] = {
    {"SX:1e39", Fault::Overflow},    {"SY:-1e39", Fault::Overflow},    {"SZ:3.5e38", Fault::Overflow},
    {"LT:45.", Fault::TypeMismatch}, {"LG:45. ", Fault::TypeMismatch}, {"CA:-1.", Fault::TypeMismatch},
    {"LT:32768", Fault::Overflow},   {"LG:-99999.5", Fault::Overflow}, {"CA:1.5e3", Fault::TypeMismatch},
};

TEST_F(ControlFileFaults, LeaveTheTablesUntouched) {
    for (const FaultCase& row : FaultCases) {
        SCOPED_TRACE(row.line);
        Tables() = {};
        FillInput("BEFORE");
        const std::string path = folder.Put("input.ctl", Lines({"PR:new", "AC:PR", "AC:OS", row.line}));
        try {
            ReadControlFile(path);
            ADD_FAILURE() << "no fault";
        } catch (const RuntimeFault& fault) {
            EXPECT_EQ(fault.Number(), row.fault);
        }
        ExpectInputAsBefore("BEFORE");
        ExpectNothingTold(prompts);
    }
}

TEST_F(ControlFileFaults, DoNotComeFromTheLargestSingle) {
    ASSERT_TRUE(ReadLines({"AC:PR", "AC:OS", "SX:3.4028234e38", "SY:-3.4028234e38", "SZ:1e-60"}));
    EXPECT_EQ(Tables().InputPoints[0].SX, std::numeric_limits<float>::max());
    EXPECT_EQ(Tables().InputPoints[0].SY, -std::numeric_limits<float>::max());
    EXPECT_EQ(Tables().InputPoints[0].SZ, 0.0F);
}

// Broken files

struct BrokenFile {
    const char* name;
    std::string bytes;
    std::string told;  // without caption and path; empty where the file is read
    std::string pn;    // what the first point holds
    std::string kept;  // header lines or other lines of the first point
    std::size_t points = 1;
};

std::string EveryByte() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

// The lines of EveryByte(), cut at its LF (10) and CR (13), as they are kept.
std::string EveryByteKept() {
    const std::string bytes = EveryByte();
    return bytes.substr(0, 10) + "\r\n" + bytes.substr(11, 2) + "\r\n" + bytes.substr(14);
}

std::string FieldFault(const std::string& path, int line, const std::string& reason) {
    return "Invalid Tarvek Points and Chains File: '" + path + "'\nError on Line: " + std::to_string(line) +
           "\n" + reason;
}

std::string BlankLine(const std::string& path, int line) {
    return "Invalid Tarvek Control File '" + path + "'.\nError on line " + std::to_string(line) +
           ".\nAn Tarvek Control File can not contain blank lines.";
}

std::vector<BrokenFile> BrokenFiles(const std::string& path) {
    const std::string nul(1, '\0');
    return {
        {"empty", "", "", "", ""},
        {"blanks alone", "     ", BlankLine(path, 1), "", ""},
        {"a line end alone", "\r\n", BlankLine(path, 1), "", ""},
        {"no line end", "PN:A", "", "A", ""},
        {"CR alone", "AC:PR\rAC:OS\rPN:A\rCM:x\r", "", "A", "CM:x"},
        {"LF alone", "AC:PR\nAC:OS\nPN:A\nCM:x\n", "", "A", "CM:x"},
        {"LF CR", "PN:A\n\rCM:x", BlankLine(path, 2), "", ""},
        {"byte order mark", "\xEF\xBB\xBFPN:A\r\n", "", "A", ""},
        {"byte order mark alone", "\xEF\xBB\xBF", "", "", ""},
        {"UTF-16", "\xFF\xFE" + std::string("P\0N\0:\0A\0", 8), "", "",
         "\xFF\xFE" + std::string("P\0N\0:\0A\0", 8)},
        {"NUL alone", nul, "", "", nul},
        {"NUL in a name", "PN:" + nul + "A" + nul, "", nul + "A" + nul, ""},
        {"NUL in a tag", "P" + nul + "N:A", "", "", "P" + nul + "N:A"},
        {"NUL behind a number", "YC:1" + nul, FieldFault(path, 1, "Northing Coordinate must be numeric."), "",
         ""},
        {"every byte", EveryByte(), "", "", EveryByteKept()},
        {"a long line", "CM:" + std::string(50'000'000, 'x'), "", "", "CM:" + std::string(50'000'000, 'x')},
        {"a long number", "PN:A\r\nYC:" + std::string(50'000'000, '1'),
         FieldFault(path, 2, "Northing Coordinate must be numeric."), "", ""},
        {"a long name", "PN:" + std::string(50'000'000, 'A'),
         FieldFault(path, 1, "Point Name can not exceeed 8 characters."), "", ""},
        {"1e400", "ZC:1e400", FieldFault(path, 1, "Elevation Coordinate must be numeric."), "", ""},
        {"nan", "XC:nan", FieldFault(path, 1, "Easting Coordinate must be numeric."), "", ""},
        {"inf", "SF:inf", FieldFault(path, 1, "Scale Factor must be numeric."), "", ""},
        {"many records", Lines({"AC:A", "AC:B", "AC:C"}), "", "", "", 4},
    };
}

TEST_F(ControlFileFaults, AreToldForBrokenFilesAndNothingElseHappens) {
    const std::string path = folder.File("input.ctl");
    for (const BrokenFile& file : BrokenFiles(path)) {
        SCOPED_TRACE(file.name);
        Tables() = {};
        FillInput("BEFORE");
        prompts.told.clear();
        folder.Put("input.ctl", file.bytes);
        EXPECT_EQ(ReadControlFile(path), file.told.empty());
        EXPECT_TRUE(test::ReadBytes(path) == file.bytes);
        EXPECT_EQ(folder.Names(), std::vector<std::string>{"input.ctl"});
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

// Half-written outputs

TEST_F(ControlFileFaults, KeepWhatWasPrintedBeforeThem) {
    AddPoint("A", 0);
    AddPoint("B", 1e308);  // more feet than a double holds
    AddPoint("C", 0);
    Tables().OutputHeader.System.HorizontalUnits = "U.S. Survey Feet";
    ExpectWriteFault(Fault::Overflow);
    EXPECT_EQ(test::ReadBytes(folder.File("output.ctl")),
              Lines({"AC:PR", "UL:F"}) + ProgramAndDate() +
                  Lines({"AC:OS", "PN:A", "YC:0.0000", "XC:3.2808", "ZC:6.5617", "AC:OS", "PN:B"}));
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"output.ctl"});
}

TEST_F(ControlFileFaults, KeepAFileThatWasThereBefore) {
    folder.Put("output.ctl", "old");
    AddPoint("A", std::numeric_limits<double>::infinity());
    ExpectWriteFault(Fault::Overflow);
    EXPECT_EQ(test::ReadBytes(folder.File("output.ctl")), "old");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"output.ctl"});
}

TEST_F(ControlFileFaults, EndTheFileAtAWholeLine) {
    AddPoint("A", std::numeric_limits<double>::infinity());
    ExpectWriteFault(Fault::Overflow);
    EXPECT_TRUE(test::ReadBytes(folder.File("output.ctl")).ends_with("PN:A\r\n"));
}

// Each lets one call fail as a file system does that is full or gone.
int FailingOpen(const char*, int, mode_t) { return errno = EACCES, -1; }
ssize_t FailingWrite(int, const void*, std::size_t) { return errno = ENOSPC, -1; }
int FailingSync(int) { return errno = EIO, -1; }
int FailingClose(int file) { return ::close(file), errno = ENOSPC, -1; }
int FailingRename(const char*, const char*) { return errno = EROFS, -1; }

struct CallCase {
    const char* name;
    FileCalls calls;
    Fault fault;
};

FileCalls With(auto FileCalls::*call, auto failing) {
    FileCalls calls = SystemFileCalls;
    calls.*call = failing;
    return calls;
}

TEST_F(ControlFileFaults, OfTheFileSystemKeepTheOldFile) {
    const CallCase cases[] = {
        {"open", With(&FileCalls::open, FailingOpen), Fault::PermissionDenied},
        {"write", With(&FileCalls::write, FailingWrite), Fault::DiskFull},
        {"sync", With(&FileCalls::fsync, FailingSync), Fault::DeviceError},
        {"close", With(&FileCalls::close, FailingClose), Fault::DiskFull},
        {"rename", With(&FileCalls::rename, FailingRename), Fault::PermissionDenied},
    };
    AddPoint("A", 1);
    for (const CallCase& row : cases) {
        SCOPED_TRACE(row.name);
        folder.Put("output.ctl", "old");
        SetFileCalls(&row.calls);
        ExpectWriteFault(row.fault);
        SetFileCalls(nullptr);
        EXPECT_EQ(test::ReadBytes(folder.File("output.ctl")), "old");
        EXPECT_EQ(folder.Names(), std::vector<std::string>{"output.ctl"});
        ExpectNothingTold(prompts);
    }
}

int WritesLeft = 0;

ssize_t FailLater(int file, const void* bytes, std::size_t count) {
    return WritesLeft-- > 0 ? ::write(file, bytes, count) : FailingWrite(file, bytes, count);
}

TEST_F(ControlFileFaults, OfAFullDiskInTheMiddleKeepTheOldFile) {
    folder.Put("output.ctl", "old");
    for (int i = 0; i < 20000; ++i) AddPoint(std::to_string(i), i);  // more than one buffer of bytes
    const FileCalls calls = With(&FileCalls::write, FailLater);
    SetFileCalls(&calls);
    WritesLeft = 1;
    ExpectWriteFault(Fault::DiskFull);
    EXPECT_LT(WritesLeft, 0);
    EXPECT_EQ(test::ReadBytes(folder.File("output.ctl")), "old");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"output.ctl"});
}

// A disk that takes a few bytes at a time and is interrupted in between.
ssize_t WriteInPieces(int file, const void* bytes, std::size_t count) {
    static bool interrupted = false;
    if ((interrupted = !interrupted)) return errno = EINTR, -1;
    return ::write(file, bytes, count < 7 ? count : 7);
}

TEST_F(ControlFileFaults, AreNoneWhereADiskIsOnlySlow) {
    AddPoint("A", 1);
    const FileCalls calls = With(&FileCalls::write, WriteInPieces);
    SetFileCalls(&calls);
    const std::string bytes = Written();
    EXPECT_TRUE(bytes.ends_with("PN:A\r\nYC:1.0000\r\nXC:1.0000\r\nZC:2.0000\r\n")) << bytes;
}

TEST_F(ControlFileFaults, TellAPathThatCanNotBeWritten) {
    AddPoint("A", 1);
    try {
        WriteControlFile(folder.File("none/output.ctl"));
        ADD_FAILURE() << "no fault";
    } catch (const RuntimeFault& fault) {
        EXPECT_EQ(fault.Number(), Fault::PathNotFound);
    }
    EXPECT_TRUE(folder.Names().empty());
}

TEST_F(ControlFileFaults, LeaveAFolderAtThePathAlone) {
    AddPoint("A", 1);
    try {
        WriteControlFile(folder.Path());
        ADD_FAILURE() << "no fault";
    } catch (const RuntimeFault& fault) {
        EXPECT_EQ(fault.Number(), Fault::FileAccessError);
    }
    EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace tarvek
