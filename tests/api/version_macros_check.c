/* Compiles only while the version macros of optkw.h agree with the project's
 * version, the interface version and the shared object's version. */
#include <string.h>

#include "optkw.h"

_Static_assert(OPTKW_VERSION_MAJOR == PROJECT_MAJOR, "major version");
_Static_assert(OPTKW_VERSION_MINOR == PROJECT_MINOR, "minor version");
_Static_assert(OPTKW_VERSION_PATCH == PROJECT_PATCH, "patch version");
_Static_assert(OPTKW_API_VERSION == OPTKW_VERSION_MAJOR, "interface version");
_Static_assert(OPTKW_API_VERSION == SOVERSION, "SONAME version");
_Static_assert(sizeof OPTKW_VERSION_STRING == sizeof PROJECT_STRING, "version string");

int optkw_version_string_matches(void) {
  return strcmp(OPTKW_VERSION_STRING, PROJECT_STRING) == 0;
}
