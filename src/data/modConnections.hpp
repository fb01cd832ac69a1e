// Finding the installation's folders and databases, and opening the two long-lived connections.
#pragma once

namespace kestrel {

// Folders from the place of the executable, file kinds by which file exists, the definition tables, the local
// connection. False, without a message, when there is no program folder in the path or no usrcnfg file; a local
// database that can't be opened shows one message. Raises what happens after that (the caller's route).
bool openSystemDatabases();
bool openMainDatabase();      // false: could not be opened; the reason is in the run history
bool reopenLocalConnection(); // closes and opens afresh, reading nothing
void preparePerUserFiles();

} // namespace kestrel
