#include "data/connection_string.h"
#include "data/odbc/odbc_provider.h"
#include "data/provider.h"
#include "data/sqlite/sqlite_provider.h"

namespace telvaro::data {

std::unique_ptr<ProviderSession> openSession(StringView connectionString, const DataServices& services) {
    const ConnectionTarget target = chooseEngine(connectionString);
    switch (target.engine) {
        case Engine::Odbc:
            return openOdbcSession(target.target);
        case Engine::Embedded:
            break;
    }
    return openSqliteSession(target.target, services);
}

}  // namespace telvaro::data
