// Fuzz target: the exported C interface as a client reaches it, through the
// real symbols of the shared object. The input is a byte-coded sequence of
// calls over one handle: every row of optkw_table.def under both of its names,
// its C-string form where it has one, and the frame (handles, version and
// signature checks, the load path). Files are read and written only in a
// folder of the target's own: a few hold fixed definitions, others text from
// the input.
//
// Besides "no crash", the target checks what must hold after every call:
//  - the queue holds at most its limit plus one message, while nothing echoes;
//  - the brackets of the sources read (file enter and leave) pair up;
//  - a value that was refused ("Option ignored") leaves the option as it was;
//  - a written parameter file, read into a fresh handle with the same fixed
//    definition, gives back every value the text format can carry.
#include <fcntl.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "optkw.h"

namespace {

constexpr int kLimit = 5000;

// Definitions with every kind of option and each lookup method; no option is
// obsolete and no comment character is set, so that written values read back.
const char *const kDefinitions[] = {
    "g1 group 1 1 Numbers\n"
    "iters integer 1 100 0 maxint 1 1 Iteration limit\n"
    " a second help line\n"
    "tol double 3 1e-6 eps 1 1 1 Tolerance\n"
    "bounds double.TWO 4 0.5 -1 1 1 1 Two values\n"
    "steps integer.TWO 5 2 0 9 1 1 Two integers\n"
    "name string 6 \"a b\" 1 1 A name\n"
    "flag boolean 7 0 1 1 A flag\n"
    "quiet boolean.NV 8 1 1 1 No value\n"
    "verbose integer.OPT 9 1 0 3 1 1 Optional value\n"
    "mode enumstr 10 fast 1 1 Mode\n"
    " fast 1 Fast\n"
    " Full 1 Full\n"
    "level enumint 11 1 1 1 Level\n"
    " 1 1 One\n"
    " 100 1 Hundred\n"
    "lists strlist 12 1 1 Collected\n"
    "pair multilist 13 1 1 Two at once\n"
    " iters tol pair\n"
    "all macro 1 1 Several at once\n"
    " flag\n"
    " pair\n"
    "msg immediate Message 1 1 A message\n"
    "nb immediate NoBounds 1 1 No bounds\n"
    "eol immediate EolFlag 1 1 End of line\n"
    "rf immediate ReadFile 1 1 Read a file\n"
    ".scale double 14 1 0 10 0 0 Dot option\n"
    "it synonym iters\n"
    "old deprecated\n"
    " it Use iters\n"
    "ind indicator\n"
    "dv definedvar\n",
    "Path lookup\n"
    "iteration_limit integer 1 10 0 100 1 1 Limit\n"
    "itex_limit integer 2 10 0 100 1 1 Shadowed\n"
    "major_step_size double 3 1 0 9 1 1 Step\n"
    "ab_cde string 4 \"\" 1 1 A short word\n"
    "method enumstr 5 auto 1 1 Method\n"
    " auto 1 Auto\n"
    " barrier 1 Barrier\n",
    "Minos lookup\n"
    "major_iterations_limit integer 1 10 0 100 1 1 Limit\n"
    "feasibility_tolerance double 2 1e-6 0 1 1 1 Tolerance\n"
    "scale_option enumint 3 1 1 1 Scale\n"
    " 0 1 None\n"
    " 1 1 Some\n"
    "print_file string 4 \"x\" 1 1 File\n",
};
constexpr int kFixed = 3, kFree = 4;

// Reads arguments off the input; past its end every read gives zeros.
class Input {
 public:
  Input(const uint8_t *data, size_t size) : p_(data), end_(data + size) {}
  bool more() const { return p_ < end_; }
  uint8_t Byte() { return p_ < end_ ? *p_++ : 0; }
  int Int() {
    const uint8_t kind = Byte();
    if (kind < 200) return static_cast<int>(kind % 24) - 2;  // mostly small numbers
    int32_t value = 0;
    for (int k = 0; k < 4; ++k)
      value = static_cast<int32_t>(static_cast<uint32_t>(value) << 8 | Byte());
    return value;
  }
  double Dbl() {
    const uint8_t kind = Byte();
    if (kind < 200) return (static_cast<int>(kind) - 100) / 8.0;
    double value = 0;
    unsigned char bytes[sizeof value];
    for (unsigned char &b : bytes)
      b = Byte();
    std::memcpy(&value, bytes, sizeof value);
    return value;
  }
  std::string Text(size_t most) {
    size_t n = Byte();
    if (n == 255) n = static_cast<size_t>(Byte()) << 8 | Byte();
    n = std::min(std::min(n, most), static_cast<size_t>(end_ - p_));
    std::string text(reinterpret_cast<const char *>(p_), n);
    p_ += n;
    return text;
  }

 private:
  const uint8_t *p_, *end_;
};

// A counted string, as the plain forms pass text.
struct Counted {
  explicit Counted(std::string_view text) {
    const size_t n = std::min<size_t>(text.size(), 255);
    bytes[0] = static_cast<char>(n);
    std::memcpy(bytes + 1, text.data(), n);
  }
  char bytes[256];
};

struct Folder {
  Folder() {
    const char *tmp = std::getenv("TMPDIR");
    path = std::string(tmp ? tmp : "/tmp") + "/optkw-api-fuzz-XXXXXX";
    if (!mkdtemp(path.data())) std::abort();
    for (int k = 0; k < kFixed; ++k)
      Write(k, kDefinitions[k]);
    // Help mode 4 and the by-name warnings write to standard output; the
    // library must never wait for standard input.
    const int null = open("/dev/null", O_RDWR);
    dup2(null, 0);
    dup2(null, 1);
  }
  std::string File(int k) const { return path + "/f" + std::to_string(k); }
  void Write(int k, std::string_view text) const {
    if (std::FILE *f = std::fopen(File(k).c_str(), "wb")) {
      std::fwrite(text.data(), 1, text.size(), f);
      std::fclose(f);
    }
  }
  std::string path;
};

const Folder &Files() {
  static const Folder folder;
  return folder;
}

void Check(bool holds, const char *what) {
  if (!holds) {
    std::fprintf(stderr, "property broken: %s\n", what);
    std::abort();
  }
}

std::vector<std::pair<std::string, int>> Messages(optHandle_t h) {
  std::vector<std::pair<std::string, int>> messages;
  char text[256];
  for (int nr = 1; nr <= optmessagecount(h); ++nr) {
    int type = 0;
    coptgetmessage(h, nr, text, &type);
    messages.emplace_back(text, type);
  }
  return messages;
}

// The handle of one run, and what the checks need to know of it.
struct Session {
  optHandle_t h = nullptr;
  bool echoed = false;        // echo was on at some time: the queue may pass its limit
  int definitions_read = 0;   // reads of a definition
  int fixed_definition = -1;  // the one fixed definition read, if that is all that was read

  Session() { xcreate(&h); }
  ~Session() { xfree(&h); }
  void Renew() {
    xfree(&h);
    Check(h == nullptr, "xfree sets the handle to nil");
    char message[256];
    optcreate(&h, message, 255);
    echoed = false;
    definitions_read = 0;
    fixed_definition = -1;
  }
};

enum class FileUse { kDefinition, kParameters, kWrite };

FileUse UseOf(std::string_view row) {
  if (row == "optReadDefinition") return FileUse::kDefinition;
  return row == "optWriteParameterFile" ? FileUse::kWrite : FileUse::kParameters;
}

// A file name for a call that reads or writes one: always a file of the
// folder, and never a fixed definition for a write.
std::string FileArgument(Session &s, Input &in, FileUse use) {
  int k = in.Byte() % (kFixed + kFree);
  if (use == FileUse::kWrite && k < kFixed) k += kFixed;
  if (use == FileUse::kDefinition) {
    s.fixed_definition = s.definitions_read == 0 && k < kFixed ? k : -1;
    ++s.definitions_read;
  }
  return Files().File(k);
}

// ---- Calls of the table, generated from it.

// Arguments are made before the call, in order, so that one input always means
// the same calls.
#define OPTKW_M_fzdecl_
#define OPTKW_M_fzdecl_optkw_int(x) const int x = in.Int();
#define OPTKW_M_fzdecl_optkw_int_out(x) int x = -7;
#define OPTKW_M_fzdecl_optkw_dbl(x) const double x = in.Dbl();
#define OPTKW_M_fzdecl_optkw_dbl_out(x) double x = -7;
#define OPTKW_M_fzdecl_optkw_pchar(x) const std::string x = in.Text(4000);
#define OPTKW_M_fzdecl_optkw_str(x) \
  const std::string x = IsFileName(#x) ? FileArgument(s, in, use) : in.Text(300);
#define OPTKW_M_fzdecl_optkw_str_out(x) char x[256] = {0};

#define OPTKW_M_fzplain_
#define OPTKW_M_fzplain_optkw_int(x) , x
#define OPTKW_M_fzplain_optkw_int_out(x) , &x
#define OPTKW_M_fzplain_optkw_dbl(x) , x
#define OPTKW_M_fzplain_optkw_dbl_out(x) , &x
#define OPTKW_M_fzplain_optkw_pchar(x) , x.c_str()
#define OPTKW_M_fzplain_optkw_str(x) , Counted(x).bytes
#define OPTKW_M_fzplain_optkw_str_out(x) , x

#define OPTKW_M_fzc_
#define OPTKW_M_fzc_optkw_int(x) , x
#define OPTKW_M_fzc_optkw_int_out(x) , &x
#define OPTKW_M_fzc_optkw_dbl(x) , x
#define OPTKW_M_fzc_optkw_dbl_out(x) , &x
#define OPTKW_M_fzc_optkw_pchar(x) , x.c_str()
#define OPTKW_M_fzc_optkw_str(x) , x.c_str()
#define OPTKW_M_fzc_optkw_str_out(x) , x

#define OPTKW_FZ_RESULT_OPTKW_VOID
#define OPTKW_FZ_RESULT_OPTKW_INT
#define OPTKW_FZ_RESULT_OPTKW_DOUBLE
#define OPTKW_FZ_RESULT_OPTKW_BOOL
#define OPTKW_FZ_RESULT_OPTKW_SHORTSTR , result

bool IsFileName(std::string_view argument) {
  return argument == "fileName";
}

using Call = void (*)(Session &, Input &, int form);

#define OPTKW_FZ_CFORM_OPTKW_CFORM(lower, R, ARGS)                      \
  if (form == 2) {                                                      \
    OPTKW_CAT(c, lower)(s.h OPTKW_EACH(fzc, ARGS) OPTKW_FZ_RESULT_##R); \
    return;                                                             \
  }
#define OPTKW_FZ_CFORM_OPTKW_NO_CFORM(lower, R, ARGS)

#define OPTKW_ROW(Name, lower, R, CFORM, ARGS)                                \
  [](Session &s, [[maybe_unused]] Input &in, int form) {                      \
    [[maybe_unused]] const FileUse use = UseOf(#Name);                        \
    OPTKW_EACH(fzdecl, ARGS)                                                  \
    [[maybe_unused]] char result[256] = {0};                                  \
    OPTKW_FZ_CFORM_##CFORM(lower, R, ARGS) if (form == 1) {                   \
      OPTKW_CAT(lower, _)(s.h OPTKW_EACH(fzplain, ARGS) OPTKW_FZ_RESULT_##R); \
    }                                                                         \
    else {                                                                    \
      lower(s.h OPTKW_EACH(fzplain, ARGS) OPTKW_FZ_RESULT_##R);               \
    }                                                                         \
  },
const Call kCalls[] = {
#include "optkw_table.def"
};
#undef OPTKW_ROW
constexpr int kRows = sizeof kCalls / sizeof kCalls[0];

// ---- Properties

void CheckQueue(const Session &s) {
  if (s.echoed) return;
  Check(optmessagecount(s.h) <= kLimit + 1, "the queue holds at most its limit plus one");
}

void CheckBrackets(const Session &s) {
  const auto messages = Messages(s.h);
  if (s.echoed || messages.size() >= kLimit) return;  // a full queue drops brackets
  // The words around a name differ in length, so a long name is cut at
  // different places: one name must begin the other.
  auto same = [](std::string_view a, std::string_view b) {
    return a.size() <= b.size() ? b.substr(0, a.size()) == a : a.substr(0, b.size()) == b;
  };
  std::vector<std::string> open;
  for (const auto &[text, type] : messages) {
    if (type == optMsgFileEnter) open.push_back(text.substr(text.find('"')));
    if (type == optMsgFileLeave) {
      Check(!open.empty() && same(open.back(), text.substr(text.find('"'))),
            "a source's leave bracket closes its enter bracket");
      open.pop_back();
    }
  }
  Check(open.empty(), "every source read is closed");
}

struct OptionState {
  std::string first, second;
  int defined = 0;
  bool operator==(const OptionState &) const = default;
};

OptionState StateOf(optHandle_t h, int nr) {
  OptionState state;
  char text[256];
  coptgetstrnr(h, nr, text);
  state.first = text;
  coptgetstr2nr(h, nr, text);
  state.second = text;
  optgetdefinednr(h, nr, &state.defined);
  return state;
}

int TypeOf(optHandle_t h, int nr) {
  int defined, recent, ref, data, type = -1, subtype;
  optgetinfonr(h, nr, &defined, &recent, &ref, &data, &type, &subtype);
  return type;
}

// The option a setter names: its first argument, a number or a name.
int SetterTarget(optHandle_t h, Input in, bool by_name) {
  if (!by_name) return in.Int();
  int nr = 0, ref = 0;
  return coptfindstr(h, in.Text(300).c_str(), &nr, &ref) ? nr : 0;
}

// A value refused by a setter ("Option ignored") leaves its option as it was.
// Multi-lists and macros hand values on, and some members may take theirs.
void SetterRefusal(Session &s, Input &in, int row, int form) {
  const int nr = SetterTarget(s.h, in, row + 1 >= 83);
  const int type = nr >= 1 && nr <= optcount(s.h) ? TypeOf(s.h, nr) : -1;
  const int before_count = optmessagecount(s.h);
  if (type < 0 || type > optTypeEnumInt || before_count >= kLimit) {
    kCalls[row](s, in, form);
    return;
  }
  const OptionState before = StateOf(s.h, nr);
  kCalls[row](s, in, form);
  const auto messages = Messages(s.h);
  if (messages.size() >= kLimit) return;
  for (size_t k = before_count; k < messages.size(); ++k) {
    if (messages[k].first.find("Option ignored") != std::string::npos) {
      Check(StateOf(s.h, nr) == before, "a refused value leaves the option as it was");
      return;
    }
  }
}

// Whether the text format carries `text` back as it is.
bool Carried(const std::string &text) {
  for (char c : text) {
    const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                       c == '.' || c == '-' || c == '+' || c == '_';
    if (!plain) return false;
  }
  return true;
}

// A boolean 0 or 1, an enumerated value in its list: what reads back without
// the NoBounds switch.
bool Listed(optHandle_t h, int nr, int type, const std::string &value) {
  if (type == optTypeBoolean) return value == "0" || value == "1";
  if (type != optTypeEnumStr && type != optTypeEnumInt) return true;
  int count = 0, number = 0;
  char text[256];
  optgetenumcount(h, nr, &count);
  for (int k = 1; k <= count; ++k) {
    coptgetenumvalue(h, nr, k, &number, text);
    if (strcasecmp(text, value.c_str()) == 0) return true;
  }
  return false;
}

// Both values of a double option are numbers that text can hold.
bool Finite(optHandle_t h, int nr) {
  double first = 0, second = 0;
  optgetdblnr(h, nr, &first);
  optgetdbl2nr(h, nr, &second);
  return std::isfinite(first) && std::isfinite(second);
}

void CheckRoundTrip(Session &s) {
  if (s.fixed_definition < 0 || s.definitions_read != 1) return;
  const int count = optcount(s.h);
  // Written names are looked up again: every name must lead back to itself.
  char name[256];
  for (int nr = 1; nr <= count; ++nr) {
    coptgetnamenr(s.h, nr, name);
    int found = 0, ref = 0;
    if (coptfindstr(s.h, name, &found, &ref) == 0 || found != nr) return;
  }
  const std::string written = Files().path + "/written.opt";
  if (coptwriteparameterfile(s.h, written.c_str()) != 0) return;
  optHandle_t copy = nullptr;
  xcreate(&copy);
  coptreaddefinition(copy, Files().File(s.fixed_definition).c_str());
  coptreadparameterfile(copy, written.c_str());
  for (int nr = 1; nr <= count && nr <= optcount(copy); ++nr) {
    int defined, recent, ref, data, type, subtype;
    optgetinfonr(s.h, nr, &defined, &recent, &ref, &data, &type, &subtype);
    if (defined == 0 || type > optTypeEnumInt || subtype == optsubNoValue) continue;
    const OptionState mine = StateOf(s.h, nr), theirs = StateOf(copy, nr);
    coptgetnamenr(s.h, nr, name);
    if (name[0] == '.' || !Carried(mine.first) || !Carried(mine.second)) continue;
    if (!Listed(s.h, nr, type, mine.first) || !Listed(s.h, nr, type, mine.second)) continue;
    if (type == optTypeDouble && !Finite(s.h, nr)) continue;  // a setter may store a NaN
    Check(mine.first == theirs.first && mine.second == theirs.second,
          "a written value reads back as it was");
  }
  xfree(&copy);
}

// ---- The frame, which isn't in the table

void Frame(Session &s, Input &in) {
  char text[256];
  int status = 0;
  switch (in.Byte() % 6) {
    case 0:
      Check(xapiversion(in.Int(), text, &status) == (status != 0), "version result and status");
      break;
    case 1:
      cxapiversion(in.Int(), text, &status);
      break;
    case 2: {
      const std::string name = in.Text(300);
      int codes[8];
      for (int &code : codes)
        code = in.Int();
      const int n = in.Int();
      Counted counted(name);
      if (in.Byte() & 1) {
        xcheck(counted.bytes, n, codes, text);
      } else {
        cxcheck(name.c_str(), n, codes, text);
      }
      break;
    }
    case 3:
      coptsetloadpath(in.Text(300).c_str());
      coptgetloadpath(text);
      break;
    case 4:
      optsetloadpath(Counted(in.Text(300)).bytes);
      optgetloadpath(text);
      break;
    case 5:
      s.Renew();
      break;
  }
}

bool IsSetter(int row) {
  // optSetValuesNr ... optSetStr2Nr and friends: rows 17, 18, 36, 37, 45, 46, 49, 50, 83-85
  switch (row + 1) {
    case 17:
    case 18:
    case 36:
    case 37:
    case 45:
    case 46:
    case 49:
    case 50:
    case 83:
    case 84:
    case 85:
      return true;
    default:
      return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  Files();
  Input in(data, size);
  Session s;
  for (int steps = 0; in.more() && steps < 200; ++steps) {
    const uint8_t op = in.Byte();
    if (op < 240) {
      // Plain form, plain form under its second name, or the C-string form.
      const int row = in.Byte() % kRows, form = op % 3;
      if (row + 1 == 27 /* optEchoSet */) s.echoed = true;
      if (row + 1 == 2 /* optReadDefinitionFromPChar */) {
        ++s.definitions_read;
        s.fixed_definition = -1;
      }
      if (IsSetter(row)) {
        SetterRefusal(s, in, row, form);
      } else {
        kCalls[row](s, in, form);
      }
    } else if (op < 246) {
      const int k = in.Byte() % kFree;
      Files().Write(kFixed + k, in.Text(6000));
    } else if (op < 251) {
      Frame(s, in);
    } else {
      CheckRoundTrip(s);
    }
    CheckQueue(s);
    CheckBrackets(s);
  }
  return 0;
}
