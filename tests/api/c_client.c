/* A client written in C: it includes only the public header, links the shared
 * object and runs a whole cycle through plain and C-string forms, then reads
 * what it wrote into a second handle. Usage: c_client DIR (a directory it may
 * write to). Exits with 1 when a check fails. */
#include <stdio.h>
#include <string.h>

#include "optkw.h"

static int failures = 0;
#define EXPECT(condition)                                                     \
  do {                                                                        \
    if (!(condition)) {                                                       \
      fprintf(stderr, "%s:%d: failed: %s\n", __FILE__, __LINE__, #condition); \
      failures++;                                                             \
    }                                                                         \
  } while (0)

static void write_file(const char *path, const char *text) {
  FILE *f = fopen(path, "w");
  if (f) {
    fputs(text, f);
    fclose(f);
  }
}

int main(int argc, char **argv) {
  char definition[512], parameters[512], written[512], text[256], name[256], counted[256];
  optHandle_t h = NULL, copy = NULL;
  int nr = 0, ref = 0, ival = 0, type = 0, errors = -1, warnings = -1;
  double dval = 0;
  if (argc < 2) return 2;
  snprintf(definition, sizeof definition, "%s/c_client.def", argv[1]);
  snprintf(parameters, sizeof parameters, "%s/c_client.opt", argv[1]);
  snprintf(written, sizeof written, "%s/c_client.out", argv[1]);
  write_file(definition,
             "limit integer 7 10 1 100 1 1 Iteration limit\n"
             "tol double 8 1e-6 0 1 1 1 Tolerance\n"
             "mode enumstr 9 fast 1 1 Mode\n fast 1 Quick\n full 1 Thorough\n"
             "lim synonym limit\n");
  write_file(parameters, "lim 500\ntol 0.5\nmode FULL\n");

  EXPECT(optCreate(&h, text, 255) == 1);
  EXPECT(coptReadDefinition(h, definition) == 0);
  counted[0] = (char)strlen(parameters);
  memcpy(counted + 1, parameters, strlen(parameters));
  EXPECT(optReadParameterFile(h, counted) == 0);
  optErrorCount(h, &errors, &warnings);
  EXPECT(errors == 2 && warnings == 0); /* 500 is brought in range */
  coptGetMessage(h, 2, text, &type);
  EXPECT(strcmp(text,
                "*** Value Error line 1: Value brought in range for option \"lim\" saw \"500\"") ==
         0);
  EXPECT(type == optMsgValueError);

  EXPECT(coptFindStr(h, "limit", &nr, &ref) == 1 && nr == 2 && ref == 7);
  EXPECT(optGetIntNr(h, nr, &ival) == 1 && ival == 100);
  EXPECT(coptGetValuesNr(h, 4, name, &ival, &dval, text) == 1);
  EXPECT(strcmp(name, "mode") == 0 && strcmp(text, "full") == 0);
  EXPECT(optGetValuesNr(h, 4, name, &ival, &dval, text) == 1);
  EXPECT(name[0] == 4 && memcmp(name + 1, "mode", 4) == 0);
  EXPECT(optSetIntNr(h, 2, 50) == 1 && optSetDblNr(h, 3, 0.25) == 1);
  EXPECT(coptWriteParameterFile(h, written) == 0);

  xcreate(&copy);
  EXPECT(coptReadDefinition(copy, definition) == 0 && coptReadParameterFile(copy, written) == 0);
  EXPECT(optMessageCount(copy) == 0);
  EXPECT(coptGetIntStr(copy, "limit") == 50 && coptGetDblStr(copy, "tol") == 0.25);
  EXPECT(strcmp(coptGetStrStr(copy, "mode", text), "full") == 0);
  optxfree(&copy);
  EXPECT(copy == NULL && optFree(&h) == 1 && h == NULL);
  if (failures == 0) puts("c client: all checks passed");
  return failures == 0 ? 0 : 1;
}
