/* A client that calls by number through the constants that optkw exports for
 * Kestrel's definition: each must be the number the library gives the name.
 * markup_options.h, whose names come out alike in C, must build beside it
 * without a macro defined twice. */
#include <stdio.h>
#include <string.h>

#include "kestrel_options.h"
#include "markup_options.h"
#include "optkw.h"

int main(int argc, char **argv) {
  optHandle_t h = NULL;
  char text[OPTKW_STRBUF_SIZE];
  int nr = 0, ref = 0, value = 0, failures = 0;
  if (argc < 2) return 2;
  xcreate(&h);
  coptReadDefinition(h, argv[1]);
  coptFindStr(h, "iteration_limit", &nr, &ref);
  failures += nr != KESTREL_OPT_ITERATION_LIMIT;
  coptFindStr(h, "method", &nr, &ref);
  failures += nr != KESTREL_OPT_METHOD;
  coptGetEnumValue(h, KESTREL_OPT_METHOD, KESTREL_METHOD_BARRIER, &value, text);
  failures += strcmp(text, KESTREL_METHOD_BARRIER_TEXT) != 0;
  coptGetEnumValue(h, KESTREL_OPT_SCALING, 4, &value, text);
  failures += value != KESTREL_SCALING_101;
  xfree(&h);
  if (failures) fprintf(stderr, "%d constants differ from the library's numbers\n", failures);
  return failures != 0;
}
