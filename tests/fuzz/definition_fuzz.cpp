// Fuzz target: any bytes as a definition text, then every query that renders
// what the definition made.
#include <cstdint>
#include <string>

#include "database/operations.h"
#include "definition/definition_reader.h"
#include "fuzz/fuzz_input.h"
#include "output/help_listing.h"
#include "output/parameter_writer.h"
#include "parameters/reading_driver.h"

using namespace optkw;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  ShortStr message;
  tvlmoptions db(message);
  optReadDefinition(db, ShortStr(fuzz::InputFile(data, size)));
  // The first line again, as a C string.
  const std::string text(reinterpret_cast<const char *>(data), size);
  optReadDefinitionFromPChar(db, text.c_str());

  optShowHelp(db, "3");
  optShowHelp(db, "9");
  for (int32_t nr = 1; nr <= optCount(db); ++nr) {
    ShortStr name, value, help;
    int32_t ival = 0, count = 0, hc = 0;
    double dval = 0;
    optGetValuesNr(db, nr, name, ival, dval, value);
    optGetHelpNr(db, nr, name, help);
    optShowHelp(db, name);
    optGetEnumCount(db, nr, count);
    for (int32_t k = 1; k <= count; ++k)
      optGetEnumHelp(db, nr, k, hc, help);
    // Values as text reach every type's rules, by number and by name (through
    // the lookup method of the definition), and every option is written.
    static const char *const kValues[] = {"1", "x", "0:2:3", "maxint", "-1e300", "", "yes"};
    for (const char *value : kValues) {
      optSetStrNr(db, nr, value);
      optSetStr2Nr(db, nr, value);
    }
    optSetValuesNr(db, nr, 7, 0.5, "a:b");
    optReadFromPChar(db, (std::string(name.view()) + " 2:1").c_str());
  }
  optWriteParameterFile(db, "/dev/null");
  optResetAll(db);
  return 0;
}
