// The errors a caller of the data objects meets, with the numbers its own
// error handler sees:
//  - the data objects' own errors (a closed object, no current record, an
//    unknown field) carry the numbers 3001..3709 of the data-access
//    component, raised as automation errors of that component;
//  - a database's failure (a bad statement, a lost connection) arrives as
//    the provider's HRESULT taken as a signed Long (-2147217900 for an
//    error in the command text, -2147467259 for a failed connection), with
//    the database's own message and the failing statement in the
//    description; a statement that runs past the connection's command
//    timeout (30 seconds) is stopped with -2147217871.
#pragma once

#include <cstdint>

#include "runtime/error.h"

namespace telvaro::data {

namespace ado {
inline constexpr int InvalidArgument = 3001;
inline constexpr int OpeningFile = 3002;
inline constexpr int ReadingFile = 3003;
inline constexpr int WritingFile = 3004;
inline constexpr int NoCurrentRecord = 3021;
inline constexpr int IllegalOperation = 3219;
inline constexpr int NotCapable = 3251;
inline constexpr int ItemNotFound = 3265;
inline constexpr int ObjectClosed = 3704;
inline constexpr int ObjectOpen = 3705;
inline constexpr int ProviderNotFound = 3706;
inline constexpr int InvalidConnection = 3709;

// HRESULTs of the providers, as the Long a caller reads from its error.
inline constexpr int ErrorsInCommand = static_cast<std::int32_t>(0x80040E14u);
inline constexpr int CannotRestart = static_cast<std::int32_t>(0x80040E18u);
inline constexpr int CannotFetchBackwards = static_cast<std::int32_t>(0x80040E24u);
inline constexpr int QueryTimeout = static_cast<std::int32_t>(0x80040E31u);
inline constexpr int ProviderFailure = static_cast<std::int32_t>(0x80004005u);
}  // namespace ado

// The component's own description of one of the numbers above.
String adoDescription(int number);

// Raises one of the component's errors with its own description; `source`
// is the object's name ("ADODB.Recordset").
[[noreturn]] void raiseAdo(int number, StringView source);

// Raises a provider's failure: `message` is the database's own text, `sql`
// the statement that failed (empty when there is none, as for opening a
// connection). The description names both.
[[noreturn]] void raiseProviderError(int number, StringView provider, StringView message, StringView sql = {});

}  // namespace telvaro::data
