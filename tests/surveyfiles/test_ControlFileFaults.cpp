// Control files that are broken, faults of the run time, and outputs that are half written.

#include <unistd.h>

#include <cerrno>
#include <limits>

#include "brokenFiles.hpp"
#include "platform/modFileCalls.hpp"

namespace tarvek {
namespace {

using test::ExpectNothingTold;
using test::ExpectToldOnly;
using test::FaultOf;
using test::Lines;

class ControlFileFaults : public test::BrokenFilesTest {
  protected:
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
        EXPECT_EQ(FaultOf([&] { WriteControlFile(folder.File("output.ctl")); }), fault);
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
        EXPECT_EQ(FaultOf([&] { ReadControlFile(path); }), row.fault);
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

TEST_F(ControlFileFaults, AreToldForBrokenFilesAndNothingElseHappens) {
    ExpectBrokenFilesTold({.read = ReadControlFile,
                           .lineFault = "Invalid Tarvek Control File",
                           .blankLine = "An Tarvek Control File can not contain blank lines.",
                           .fieldFault = "Invalid Tarvek Points and Chains File",
                           .easting = "XC:",
                           .northing = "YC:",
                           .elevation = "ZC:"});
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
    EXPECT_EQ(FaultOf([&] { WriteControlFile(folder.File("none/output.ctl")); }), Fault::PathNotFound);
    EXPECT_TRUE(folder.Names().empty());
}

TEST_F(ControlFileFaults, LeaveAFolderAtThePathAlone) {
    AddPoint("A", 1);
    EXPECT_EQ(FaultOf([&] { WriteControlFile(folder.Path()); }), Fault::FileAccessError);
    EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace tarvek
