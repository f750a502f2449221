#pragma once
// Faults of the run time: what ends a run when no procedure has foreseen the trouble. They are the only
// exceptions in the program. Helpers of platform/ raise them; nobody uses them to report a refusal that the
// user has been told.

#include <exception>
#include <string>
#include <string_view>

namespace tarvek {

// The numbers under which the user is told of a fault.
enum class Fault {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    Unexpected = 51,
    FileNotFound = 53,
    DeviceError = 57,
    DiskFull = 61,
    EndOfFilePassed = 62,
    PermissionDenied = 70,
    FileAccessError = 75,
    PathNotFound = 76,
};

class RuntimeFault : public std::exception {
  public:
    explicit RuntimeFault(Fault number);
    RuntimeFault(Fault number, std::string text) : number_(number), text_(std::move(text)) {}

    Fault Number() const { return number_; }
    const std::string& Text() const { return text_; }
    // True for the faults of the file system: full disk, missing permission and their like.
    bool IsFileFault() const;
    // The words the user is told: Run-time error 'N': text.
    std::string Message() const;
    const char* what() const noexcept override { return text_.c_str(); }

  private:
    Fault number_;
    std::string text_;
};

[[noreturn]] void RaiseFault(Fault fault);
// The fault that an errno of a file operation stands for, with the path behind its text.
[[noreturn]] void RaiseFileFault(int errorNumber, std::string_view path);

// `value` itself; Fault::Overflow when it is infinite or no number at all.
double RequireFinite(double value);

}  // namespace tarvek
