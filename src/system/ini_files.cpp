#include "system/ini_files.h"

#include "context/fun.h"
#include "runtime/convert.h"

namespace telvaro::system {

namespace {
// The buffer the value is read into: a longer value is cut to 254 characters.
constexpr std::size_t kBufferSize = 255;
}  // namespace

String INI_LeerIni(Fun& fun, const String& lpFileName, const String& lpAppName, const String& lpKeyName,
                   const Variant& vDefault) {
    const String defaultText = vDefault.isMissing() ? String() : toString(vDefault);
    String read = fun.platform().profileFiles().getString(lpFileName, lpAppName, lpKeyName, defaultText, kBufferSize);
    return read.empty() ? defaultText : read;
}

void INI_GuardarIni(Fun& fun, const String& lpFileName, const String& lpAppName, const String& lpKeyName,
                    const String& lpString) {
    fun.platform().profileFiles().writeString(lpFileName, lpAppName, lpKeyName, lpString);  // result ignored
}

}  // namespace telvaro::system
