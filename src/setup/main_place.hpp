// Where an installation's main database is: the row GNR of データベース定義 in its configuration.
#pragma once

#include "platform/database/connection_text.hpp"
#include "setup/store.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

using database::MainDefinition;

// What the row says, every part trimmed, a null as empty. Fails where there is no configuration or no such row.
Result<MainDefinition> readMainDefinition(const std::string& root);
bool isKnownKind(std::string_view kind);
bool namesFile(const MainDefinition& definition); // not a server
// Opens what the definition names, as the suite's programs do.
Result<Connection> openMain(const MainDefinition& definition, const database::Settings& settings = {});

// The same for the installation at root. Fails where there is no such row, where its kind is unknown (then the programs
// open nothing), and where the engine can't open what it names.
Result<Connection> openMainStore(const std::string& root);

// What a person's connection text of a server ("Provider=…;User ID=…;Password=…;Data Source=…;[Initial Catalog=…;]")
// is as that row, filled for every kind, so that switching the kind later needs no other change. Fails where the text
// names no server, or the kind is none of "A", "S" and "O".
Result<MainDefinition> definitionFor(std::string_view kind, std::string_view connectionText);
// The row for the configuration. server: the family of what the definition leads to.
Row definitionRow(const MainDefinition& definition, database::Dialect server);
// Writes the row over that of the file, kept on the disk when this answers. Fails where there is none.
Status writeMainDefinition(const std::string& file, const Row& row);
// The configurations of single users below root, copies of the master's.
std::vector<std::string> userConfigurations(const std::string& root);

} // namespace kestrel::setup
