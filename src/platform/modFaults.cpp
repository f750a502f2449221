#include "platform/modFaults.hpp"

#include <cerrno>
#include <cmath>

namespace tarvek {
namespace {

struct FaultText {
    Fault fault;
    const char* text;
};

constexpr FaultText FaultTexts[] = {
    {Fault::InvalidCall, "Invalid procedure call or argument"},
    {Fault::Overflow, "Overflow"},
    {Fault::OutOfMemory, "Out of memory"},
    {Fault::SubscriptOutOfRange, "Subscript out of range"},
    {Fault::DivisionByZero, "Division by zero"},
    {Fault::TypeMismatch, "Type mismatch"},
    {Fault::Unexpected, "Internal error"},
    {Fault::FileNotFound, "File not found"},
    {Fault::DeviceError, "Device I/O error"},
    {Fault::DiskFull, "Disk full"},
    {Fault::EndOfFilePassed, "Input past end of file"},
    {Fault::PermissionDenied, "Permission denied"},
    {Fault::FileAccessError, "Path/File access error"},
    {Fault::PathNotFound, "Path not found"},
};

const char* TextOf(Fault fault) {
    for (const FaultText& row : FaultTexts)
        if (row.fault == fault) return row.text;
    return TextOf(Fault::Unexpected);
}

Fault FaultOfErrorNumber(int errorNumber) {
    switch (errorNumber) {
        case ENOENT:
            return Fault::FileNotFound;
        case ENOTDIR:
            return Fault::PathNotFound;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return Fault::DiskFull;
        case EACCES:
        case EPERM:
        case EROFS:
            return Fault::PermissionDenied;
        case EIO:
            return Fault::DeviceError;
        default:
            return Fault::FileAccessError;
    }
}

}  // namespace

RuntimeFault::RuntimeFault(Fault number) : RuntimeFault(number, TextOf(number)) {}

bool RuntimeFault::IsFileFault() const {
    return number_ >= Fault::FileNotFound && number_ != Fault::EndOfFilePassed;
}

std::string RuntimeFault::Message() const {
    return "Run-time error '" + std::to_string(static_cast<int>(number_)) + "': " + text_;
}

void RaiseFault(Fault fault) { throw RuntimeFault(fault); }

void RaiseFileFault(int errorNumber, std::string_view path) {
    const Fault fault = FaultOfErrorNumber(errorNumber);
    throw RuntimeFault(fault, std::string(TextOf(fault)) + ": '" + std::string(path) + "'");
}

double RequireFinite(double value) {
    if (!std::isfinite(value)) RaiseFault(Fault::Overflow);
    return value;
}

}  // namespace tarvek
