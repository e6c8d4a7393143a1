// The data objects by ProgID, for the host's create-object service:
// "ADODB.Connection", "ADODB.Recordset" and "ADODB.Stream", with or without
// a version suffix ("ADODB.Recordset.6.0"), without regard to case. Any other
// ProgID gives a null reference: the caller decides what that means.
#pragma once

#include "data/data_services.h"
#include "runtime/object.h"

namespace telvaro::data {

ObjectRef createDataObject(StringView progId, const DataServices& services);

}  // namespace telvaro::data
