// Reading definition text into a handle.
#pragma once

#include <cstdint>

#include "containers/short_str.h"
#include "database/vlmoptions.h"

namespace optkw {

// Reads a definition file (standard input for an empty name). Returns 0 when it
// was read and the message queue is empty, -1 when the queue holds anything,
// or the system's error code when the file can't be opened.
int32_t optReadDefinition(tvlmoptions &db, const ShortStr &fileName);
// Reads the first line of a C string as definition text; 0 or -1 as above.
int32_t optReadDefinitionFromPChar(tvlmoptions &db, const char *text);
// The name of the last definition file read, without its directories.
void optDefinitionFile(tvlmoptions &db, ShortStr &fileName);

}  // namespace optkw
