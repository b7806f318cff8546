/* A program that uses an installed optkw: it defines one option, sets it from
 * a command line and prints the value. */
#include <stdio.h>

#include "optkw.h"

int main(void) {
  optHandle_t h;
  char message[OPTKW_STRBUF_SIZE];
  int value = 0;
  if (!optCreate(&h, message, OPTKW_STRBUF_SIZE - 1)) return 1;
  optReadDefinitionFromPChar(h, "threads integer 1 1 1 64 1 1 Number of threads");
  optReadFromCmdLine(h, "threads 8");
  optGetIntNr(h, 2, &value);
  printf("threads = %d, %d message(s)\n", value, optMessageCount(h));
  optFree(&h);
  return value == 8 ? 0 : 1;
}
