// The families of SQL that an engine may speak. The suite's statements are one text for all of them; the rewriter turns
// it into the family's own.
#pragma once

namespace kestrel::database {

enum class Dialect {
    sqlite,     // the embedded engine
    postgresql, //
    sqlServer,  //
    oracle,     // from the release that knows FETCH FIRST
    mariadb,    // in the session mode that the engine sets: ANSI quotes, backslashes plain
};

} // namespace kestrel::database
