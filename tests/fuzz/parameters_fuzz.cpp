// Fuzz target: any bytes as parameter text, read as a file and as a command
// line against a definition with every kind of option, under each lookup
// method (chosen by the first byte). The state is then written and read back.
#include <cstdint>
#include <string>

#include "database/operations.h"
#include "definition/definition_reader.h"
#include "fuzz/fuzz_input.h"
#include "output/parameter_writer.h"
#include "parameters/reading_driver.h"

using namespace optkw;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static const char *const kDefinitions[] = {OPTKW_FUZZ_DIR "/parameters_normal.def",
                                             OPTKW_FUZZ_DIR "/parameters_path.def",
                                             OPTKW_FUZZ_DIR "/parameters_minos.def"};
  ShortStr message;
  tvlmoptions db(message);
  optReadDefinition(db, kDefinitions[size == 0 ? 0 : data[0] % 3]);
  optEOLOnlySet(db, size > 1 && (data[1] & 1));

  optReadParameterFile(db, ShortStr(fuzz::InputFile(data, size)));
  const std::string text(reinterpret_cast<const char *>(data), size);
  optReadFromCmdLine(db, text.c_str());
  optReadFromStr(db, ShortStr(text));

  optWriteParameterFile(db, "/dev/null");
  optResetRecentChanges(db);
  optResetAll(db);
  return 0;
}
