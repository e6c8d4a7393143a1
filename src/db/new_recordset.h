// A new ADO Recordset made through the host's create-object service, as
// the methods' own `New ADODB.Recordset`.
#pragma once

#include "callers/recordset.h"
#include "context/fun.h"

namespace telvaro::db {

inline callers::Recordset newRecordset(Fun& fun) {
    return callers::Recordset(fun.platform().objectFactory().create(u"ADODB.Recordset"));
}

}  // namespace telvaro::db
