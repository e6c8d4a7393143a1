// Run-time errors as the automation runtime raises them: a number, a
// description and a source. Every failure inside the library is a
// RuntimeError; the command line prints it and the COM edge turns it into
// HRESULT 0x800A0000 + number with IErrorInfo.
#pragma once

#include <exception>
#include <string>

#include "runtime/ustring.h"

namespace telvaro {

// The runtime's standard error numbers used by the library.
namespace err {
inline constexpr int ReturnWithoutGoSub = 3;
inline constexpr int InvalidProcedureCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int ArrayFixedOrLocked = 10;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int OutOfStringSpace = 14;
inline constexpr int OutOfStackSpace = 28;
inline constexpr int InternalError = 51;
inline constexpr int BadFileNameOrNumber = 52;
inline constexpr int FileNotFound = 53;
inline constexpr int BadFileMode = 54;
inline constexpr int FileAlreadyOpen = 55;
inline constexpr int DeviceIOError = 57;
inline constexpr int FileAlreadyExists = 58;
inline constexpr int BadRecordLength = 59;
inline constexpr int DiskFull = 61;
inline constexpr int InputPastEndOfFile = 62;
inline constexpr int BadRecordNumber = 63;
inline constexpr int TooManyFiles = 67;
inline constexpr int DeviceUnavailable = 68;
inline constexpr int PermissionDenied = 70;
inline constexpr int DiskNotReady = 71;
inline constexpr int PathFileAccessError = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int ObjectVariableNotSet = 91;
inline constexpr int InvalidUseOfNull = 94;
inline constexpr int ObjectRequired = 424;
inline constexpr int CantCreateObject = 429;
inline constexpr int ObjectDoesNotSupport = 438;
inline constexpr int ObjectDoesNotSupportAction = 445;
inline constexpr int WrongNumberOfArguments = 450;
inline constexpr int ArgumentNotOptional = 449;
inline constexpr int InvalidPropertyValue = 380;
inline constexpr int UnsupportedAutomationType = 458;
}  // namespace err

// The runtime's own description of a standard error number ("Type mismatch",
// "Overflow", ...); "Application-defined or object-defined error" otherwise.
String standardDescription(int number);

class RuntimeError : public std::exception {
public:
    explicit RuntimeError(int number);
    RuntimeError(int number, String description, String source = {});

    int number() const noexcept { return number_; }
    const String& description() const noexcept { return description_; }
    const String& source() const noexcept { return source_; }
    void setSource(String source) { source_ = std::move(source); }

    const char* what() const noexcept override { return what_.c_str(); }

private:
    int number_;
    String description_;
    String source_;
    std::string what_;
};

// Raise the standard error `number` (with its standard description).
[[noreturn]] void raise(int number);
[[noreturn]] void raise(int number, String description);

// The error a method that is not built yet raises, naming the method.
[[noreturn]] void raiseNotImplemented(StringView method);

}  // namespace telvaro
