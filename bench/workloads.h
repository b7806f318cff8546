// The texts the benchmarks read: definitions of M options and parameter texts
// of N statements. The same sizes always give the same bytes.
#pragma once

#include <cstdint>
#include <string>

namespace optkw::bench {

enum class Method { kNormal, kPath, kMinos };
const char *MethodName(Method method);

struct Workload {
  std::string definition;  // definition text
  std::string parameters;  // parameter text, one statement a line
  int64_t statements = 0;
  // A statement whose effect a read must show: option `probe_name` (as the
  // definition spells it) holds `probe_value` afterwards.
  std::string probe_name;
  int32_t probe_value = 0;
};

// Integer options named "<code>x_<word>_<word>", told apart by their code of
// three letters under every method. Statement i sets option i mod M, its key
// abbreviated as far as the method allows: Path cuts every word to three
// letters, Minos cuts the first to three and the others to four and writes
// them apart.
Workload LookupWorkload(Method method, int32_t options, int64_t statements);

// Options of every valued type (integers, doubles, strings, booleans and
// enumerated strings) named "opt_<k>_<word>", read by Normal lookup, with
// statements "name = value" of valid values: what a solver's users write.
Workload MixedWorkload(int32_t options, int64_t statements);

// Parameter text of `statements` names that no definition holds: each leaves
// a message, so that reading it fills the message queue.
std::string UnknownNames(int64_t statements);

// One option of each kind that the setters take: "int_option" (integer, 0 to
// 1000000), "dbl_option" (double, 0 to 1e6) and "str_option" (string).
std::string SetterDefinition();

}  // namespace optkw::bench
