#include "platform/modFaults.hpp"

#include <cerrno>
#include <cmath>
#include <limits>

#include "support/testSupport.hpp"

namespace tarvek {
namespace {

RuntimeFault FaultOf(int errorNumber) {
    try {
        RaiseFileFault(errorNumber, "/a/b");
    } catch (const RuntimeFault& fault) {
        return fault;
    }
}

TEST(Faults, MessageHasNumberAndText) {
    try {
        RaiseFault(Fault::TypeMismatch);
    } catch (const RuntimeFault& fault) {
        EXPECT_EQ(fault.Message(), "Run-time error '13': Type mismatch");
        EXPECT_FALSE(fault.IsFileFault());
        EXPECT_STREQ(fault.what(), "Type mismatch");
        return;
    }
    FAIL() << "no fault was raised";
}

TEST(Faults, FileFaultNamesItsPath) {
    struct Row {
        int errorNumber;
        const char* message;
    };
    const Row table[] = {{ENOENT, "Run-time error '53': File not found: '/a/b'"},
                         {ENOTDIR, "Run-time error '76': Path not found: '/a/b'"},
                         {ENOSPC, "Run-time error '61': Disk full: '/a/b'"},
                         {EDQUOT, "Run-time error '61': Disk full: '/a/b'"},
                         {EFBIG, "Run-time error '61': Disk full: '/a/b'"},
                         {EACCES, "Run-time error '70': Permission denied: '/a/b'"},
                         {EPERM, "Run-time error '70': Permission denied: '/a/b'"},
                         {EROFS, "Run-time error '70': Permission denied: '/a/b'"},
                         {EIO, "Run-time error '57': Device I/O error: '/a/b'"},
                         {ELOOP, "Run-time error '75': Path/File access error: '/a/b'"}};
    for (const Row& row : table) {
        EXPECT_EQ(FaultOf(row.errorNumber).Message(), row.message);
        EXPECT_TRUE(FaultOf(row.errorNumber).IsFileFault()) << row.message;
    }
}

TEST(Faults, EndOfFileIsNoFaultOfTheFileSystem) {
    EXPECT_FALSE(RuntimeFault(Fault::EndOfFilePassed, "").IsFileFault());
    EXPECT_FALSE(RuntimeFault(Fault::SubscriptOutOfRange, "").IsFileFault());
}

TEST(Faults, OnlyFiniteNumbersPass) {
    EXPECT_EQ(RequireFinite(-0.5), -0.5);
    for (const double value : {HUGE_VAL, -HUGE_VAL, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_THROW(RequireFinite(value), RuntimeFault);
}

}  // namespace
}  // namespace tarvek
