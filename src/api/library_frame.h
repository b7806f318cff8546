// What exists once per process and once per client: the load and unload
// chains, the load path, the audit line, handles and the version check.
#pragma once

#include <cstdint>

#include "containers/short_str.h"
#include "database/vlmoptions.h"

namespace optkw {

inline constexpr int32_t kLibraryVersion = 2;
inline constexpr int32_t kOldestClientVersion = 1;

// Number of load notifications not yet matched by an unload notification.
extern int32_t LoadCount;
// A text the client may park in the library; nothing inside reads it.
extern ShortStr LoadPath;

// Run by the shared object's constructor and destructor. Only the first load
// and the last unload do more than count.
void LoadChain();
void UnloadChain();

// The audit line without its markers: 78 characters, "_Option Lib" first.
ShortStr AuditText();
void optVersion(tvlmoptions &db, ShortStr &text);

// Handles: a new database whose ownership passes to the client, and its release.
tvlmoptions *CreateHandle();
void FreeHandle(void *&handle);

// The version check: 1 for clients of interface version 1 and up, 0 below.
int32_t CheckApiVersion(int32_t api, ShortStr &message, int32_t &status);

}  // namespace optkw
