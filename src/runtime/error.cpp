#include "runtime/error.h"

#include <string>
#include <unordered_map>

namespace telvaro {

String standardDescription(int number) {
    static const std::unordered_map<int, const char*> texts = {
        {3, "Return without GoSub"},
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {7, "Out of memory"},
        {9, "Subscript out of range"},
        {10, "This array is fixed or temporarily locked"},
        {11, "Division by zero"},
        {13, "Type mismatch"},
        {14, "Out of string space"},
        {16, "Expression too complex"},
        {17, "Can't perform requested operation"},
        {18, "User interrupt occurred"},
        {20, "Resume without error"},
        {28, "Out of stack space"},
        {35, "Sub or Function not defined"},
        {47, "Too many DLL application clients"},
        {48, "Error in loading DLL"},
        {49, "Bad DLL calling convention"},
        {51, "Internal error"},
        {52, "Bad file name or number"},
        {53, "File not found"},
        {54, "Bad file mode"},
        {55, "File already open"},
        {57, "Device I/O error"},
        {58, "File already exists"},
        {59, "Bad record length"},
        {61, "Disk full"},
        {62, "Input past end of file"},
        {63, "Bad record number"},
        {67, "Too many files"},
        {68, "Device unavailable"},
        {70, "Permission denied"},
        {71, "Disk not ready"},
        {74, "Can't rename with different drive"},
        {75, "Path/File access error"},
        {76, "Path not found"},
        {91, "Object variable or With block variable not set"},
        {92, "For loop not initialized"},
        {93, "Invalid pattern string"},
        {94, "Invalid use of Null"},
        {380, "Invalid property value"},
        {381, "Invalid property array index"},
        {424, "Object required"},
        {429, "ActiveX component can't create object"},
        {430, "Class does not support Automation or does not support expected interface"},
        {438, "Object doesn't support this property or method"},
        {440, "Automation error"},
        {445, "Object doesn't support this action"},
        {446, "Object doesn't support named arguments"},
        {448, "Named argument not found"},
        {449, "Argument not optional"},
        {450, "Wrong number of arguments or invalid property assignment"},
        {451, "Property let procedure not defined and property get procedure did not return an object"},
        {457, "This key is already associated with an element of this collection"},
        {458, "Variable uses an Automation type not supported in Visual Basic"},
    };
    auto it = texts.find(number);
    return ascii(it != texts.end() ? it->second : "Application-defined or object-defined error");
}

RuntimeError::RuntimeError(int number) : RuntimeError(number, standardDescription(number)) {}

RuntimeError::RuntimeError(int number, String description, String source)
    : number_(number), description_(std::move(description)), source_(std::move(source)) {
    what_ = "Error " + std::to_string(number_) + ": " + toUtf8(description_);
}

void raise(int number) { throw RuntimeError(number); }

void raise(int number, String description) { throw RuntimeError(number, std::move(description)); }

void raiseNotImplemented(StringView method) {
    throw RuntimeError(err::ObjectDoesNotSupportAction, u"Not implemented yet: " + String(method));
}

}  // namespace telvaro
