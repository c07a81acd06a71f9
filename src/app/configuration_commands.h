// configuration_commands.h - the start-up read and the three commands of the File menu that load,
// save and drop the configuration.
#pragma once

#include <span>
#include <string>

#include "document/document.h"

namespace cantorix {

// Takes the application block from the program's configuration file and, when it is usable, the
// reference rate as the recording rate. Without a valid file nothing changes.
void ReadApplicationSettings(DocumentHost& host);

// Load Configuration... Asks for a file; its record becomes the program's configuration file and
// fills the application block, the recording rate and, when there is an `active` document (may be
// null), that document's settings. Returns whether anything changed, so that the views are brought
// up to date; a failure is shown and changes nothing.
bool LoadConfiguration(DocumentHost& host, CSonadexDoc* active);

// Save Configuration... Asks for a name and writes the record of the application and `active`.
void SaveConfiguration(DocumentHost& host, const CSonadexDoc& active);

// Revert to Default Configuration: deletes the configuration file. The documents that are open,
// all of `open`, no longer write it when they close, or it would come back.
void RevertConfiguration(DocumentHost& host, std::span<CSonadexDoc* const> open);

// Whether the text of `path` looks like that of a configuration file: ".cfg" behind its first byte.
bool NamesConfiguration(const std::string& path);

}  // namespace cantorix
