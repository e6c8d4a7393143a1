// What registering the server writes and unregistering removes: the class
// under its CLSID (in-process server path, apartment threading, ProgID,
// type library, version), the ProgID, the type library with the interface
// entries of _Fun, and the interface entries of the two earlier versions
// of _Fun, all marshalled through the type library. One table of entries
// drives both directions.
#pragma once

#include <windows.h>

namespace telvaro::com {

HRESULT registerServer();
HRESULT unregisterServer();

}  // namespace telvaro::com
