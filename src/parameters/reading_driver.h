// Reading parameter text into a handle, from a file, a counted string, a C
// string or a command line. Each read is bracketed by a pair of messages that
// name its source; a source that produced no message leaves no trace.
#pragma once

#include <cstdint>

#include "containers/short_str.h"
#include "database/vlmoptions.h"

namespace optkw {

// Returns 0 when the file was opened, else the system's error code.
int32_t optReadParameterFile(tvlmoptions &db, const ShortStr &fileName);
void optReadFromStr(tvlmoptions &db, const ShortStr &text);
void optReadFromPChar(tvlmoptions &db, const char *text);
void optReadFromCmdLine(tvlmoptions &db, const char *text);

// Reads one file on a scanner of its own, inside or outside another read. Files
// nest to nine levels; the tenth is refused.
int32_t ReadParameterFileSource(tvlmoptions &db, const ShortStr &fileName);

}  // namespace optkw
