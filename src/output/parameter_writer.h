// Writing the state of a handle back as parameter text.
#pragma once

#include <cstdint>

#include "containers/short_str.h"
#include "database/vlmoptions.h"

namespace optkw {

// Writes what is set, in four sections: options, dot options, indicators and
// definedvars. An empty name writes to standard output. Returns 0, or the
// system's error code when the file can't be opened (with two messages).
int32_t optWriteParameterFile(tvlmoptions &db, const ShortStr &fileName);

}  // namespace optkw
