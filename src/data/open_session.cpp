#include "data/connection_string.h"
#include "data/errors.h"
#include "data/odbc/odbc_provider.h"
#include "data/provider.h"
#if TELVARO_EMBEDDED_ENGINE
#include "data/sqlite/sqlite_provider.h"
#endif

namespace telvaro::data {

std::unique_ptr<ProviderSession> openSession(StringView connectionString, const DataServices& services) {
    const ConnectionTarget target = chooseEngine(connectionString);
    switch (target.engine) {
        case Engine::Odbc: return openOdbcSession(target.target);
        case Engine::Embedded: break;
    }
#if TELVARO_EMBEDDED_ENGINE
    return openSqliteSession(target.target, services);
#else
    // A build without the embedded engine reaches databases through ODBC only.
    (void)services;
    raiseAdo(ado::ProviderNotFound, u"ADODB.Connection");
#endif
}

}  // namespace telvaro::data
