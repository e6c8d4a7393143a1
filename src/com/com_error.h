// Run-time errors at the automation boundary. Inside, every failure is a
// RuntimeError; leaving a method it becomes HRESULT 0x800A0000 + the
// runtime's number with IErrorInfo (number, description, source) for
// v-table callers, or EXCEPINFO for Invoke, so a client's Err.Number is the
// runtime's number exactly. Coming in, a failed call on a caller's object
// becomes the RuntimeError its HRESULT and EXCEPINFO describe.
#pragma once

#include <oaidl.h>

#include "runtime/error.h"

namespace telvaro::com {

// 0x800A0000 + number.
HRESULT hresultOf(int number);

// The run-time error of the exception in flight (RuntimeError, bad_alloc,
// anything else) as a RuntimeError with its source filled in.
RuntimeError currentError();

// Sets the thread's error object and returns the error's HRESULT.
HRESULT reportError(const RuntimeError& error);
// Fills EXCEPINFO (when given) and returns DISP_E_EXCEPTION, or sets the
// error object and returns the HRESULT when there is no EXCEPINFO.
HRESULT reportError(const RuntimeError& error, EXCEPINFO* exception);

[[noreturn]] void throwFromFailure(HRESULT hr, EXCEPINFO& exception);

}  // namespace telvaro::com
