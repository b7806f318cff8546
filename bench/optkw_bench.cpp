// Benchmarks of liboptkw through its C interface: parameter text under each
// lookup method and of every valued type, definition text, and the setters by
// number with the message queue empty or full.
//
//   optkw_bench [--smoke | --large] [Google Benchmark flags]
//
// The default sizes run in a minute or two; --large adds parameter texts of
// 10^5 and 10^6 statements, --smoke runs every benchmark at a tiny size. Each
// read is checked (no message, and its last statement took effect), so a
// broken workload shows as an error and not as a figure. bench/plot.py turns
// the JSON output (--benchmark_out=F.json --benchmark_out_format=json) into
// the plot of docs/performance.md.
#include <benchmark/benchmark.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "optkw.h"
#include "workloads.h"

namespace optkw::bench {
namespace {

namespace fs = std::filesystem;
// The figures count the CPU time of this thread: the library's work and the
// kernel's reading of the file from the page cache, but not the time spent
// waiting for a core, which on a shared machine is noise.
double ThreadNanoseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

// A workload as files, made at its first use and removed when the run ends.
struct Prepared {
  std::string definition_file;
  std::string parameter_file;
  int64_t statements = 0;
  int64_t definition_bytes = 0;
  std::string probe_name;
  int32_t probe_value = 0;
};

class WorkloadFiles {
 public:
  WorkloadFiles() : dir_(fs::temp_directory_path() / ("optkw-bench-" + std::to_string(getpid()))) {
    fs::create_directories(dir_);
  }
  ~WorkloadFiles() {
    std::error_code ignored;
    fs::remove_all(dir_, ignored);
  }
  WorkloadFiles(const WorkloadFiles &) = delete;
  WorkloadFiles &operator=(const WorkloadFiles &) = delete;

  const Prepared &Get(const std::string &tag, const std::function<Workload()> &make) {
    auto found = cache_.find(tag);
    if (found != cache_.end()) return found->second;
    const Workload w = make();
    Prepared p{Write(tag + ".def", w.definition),
               Write(tag + ".txt", w.parameters),
               w.statements,
               static_cast<int64_t>(w.definition.size()),
               w.probe_name,
               w.probe_value};
    return cache_.emplace(tag, std::move(p)).first->second;
  }

 private:
  std::string Write(const std::string &name, const std::string &text) {
    const fs::path path = dir_ / name;
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
  }

  fs::path dir_;
  std::map<std::string, Prepared> cache_;
};

WorkloadFiles &Files() {
  static WorkloadFiles files;
  return files;
}

// A handle that holds a definition, freed at the end of the scope.
class Handle {
 public:
  Handle() { xcreate(&h_); }
  ~Handle() { xfree(&h_); }
  Handle(const Handle &) = delete;
  Handle &operator=(const Handle &) = delete;
  optHandle_t get() const { return h_; }

 private:
  optHandle_t h_ = nullptr;
};

// Ends the benchmark with the first message of the queue, if there is one;
// behind the name of the file being read, if that comes first.
bool NoMessages(benchmark::State &state, optHandle_t h) {
  const int count = optmessagecount(h);
  if (count == 0) return true;
  char text[OPTKW_STRBUF_SIZE];
  int type = 0;
  coptgetmessage(h, 1, text, &type);
  if (type == optMsgFileEnter && count > 1) coptgetmessage(h, 2, text, &type);
  state.SkipWithError(text);
  return false;
}

// The number of the option that the definition names `name`, or 0. The
// walk sees the names as written, whatever the lookup method.
int NumberOf(optHandle_t h, const std::string &name) {
  char key[OPTKW_STRBUF_SIZE], help[OPTKW_STRBUF_SIZE];
  for (int nr = 1; nr <= optcount(h); ++nr)
    if (coptgethelpnr(h, nr, key, help) && name == key) return nr;
  return 0;
}

// The last statement of the workload must have reached its option: a lookup
// that found another option, or none, is no figure.
bool ProbeHolds(benchmark::State &state, optHandle_t h, const Prepared &p) {
  if (p.probe_name.empty()) return true;
  int value = -1;
  if (optgetintnr(h, NumberOf(h, p.probe_name), &value) && value == p.probe_value) return true;
  state.SkipWithError(("the read missed option " + p.probe_name).c_str());
  return false;
}

// Reads the parameter text again and again into one handle: after the first
// round every statement does the same work as in that round.
void ReadParameters(benchmark::State &state, const Prepared &p) {
  Handle h;
  coptreaddefinition(h.get(), p.definition_file.c_str());
  if (!NoMessages(state, h.get())) return;
  coptreadparameterfile(h.get(), p.parameter_file.c_str());
  if (!NoMessages(state, h.get()) || !ProbeHolds(state, h.get(), p)) return;
  const double start = ThreadNanoseconds();
  for (auto _ : state)
    coptreadparameterfile(h.get(), p.parameter_file.c_str());
  const double ns = ThreadNanoseconds() - start;
  if (!NoMessages(state, h.get())) return;
  state.SetItemsProcessed(state.iterations() * p.statements);
  state.counters["options"] = static_cast<double>(state.range(0));
  state.counters["statements"] = static_cast<double>(p.statements);
  state.counters["ns_per_statement"] = ns / static_cast<double>(state.iterations() * p.statements);
}

// Times the read of the definition alone, a fresh handle each round; the
// time of a round is the thread's CPU time of that read.
void ReadDefinition(benchmark::State &state, const Prepared &p) {
  double ns = 0;
  for (auto _ : state) {
    Handle h;
    const double start = ThreadNanoseconds();
    const int result = coptreaddefinition(h.get(), p.definition_file.c_str());
    const double round = ThreadNanoseconds() - start;
    state.SetIterationTime(round * 1e-9);
    ns += round;
    if (result != 0 && !NoMessages(state, h.get())) break;
  }
  if (state.error_occurred()) return;
  state.SetBytesProcessed(state.iterations() * p.definition_bytes);
  state.counters["options"] = static_cast<double>(state.range(0));
  state.counters["bytes"] = static_cast<double>(p.definition_bytes);
  state.counters["ns_per_byte"] = ns / static_cast<double>(state.iterations() * p.definition_bytes);
}

enum class Setter { kInt, kDouble, kText };

// One setter call per round, on a handle whose queue holds what reading
// `unknown` unknown names left there (the queue stops at 5000 and one).
void SetWithQueue(benchmark::State &state, Setter setter, const Prepared &fill) {
  Handle h;
  const std::string def_file = Files()
                                   .Get("setters",
                                        [] {
                                          Workload w;
                                          w.definition = SetterDefinition();
                                          return w;
                                        })
                                   .definition_file;
  coptreaddefinition(h.get(), def_file.c_str());
  if (!NoMessages(state, h.get())) return;
  if (state.range(0) > 0) coptreadparameterfile(h.get(), fill.parameter_file.c_str());
  const int queued = optmessagecount(h.get());
  int nr = 0, ref = 0;
  const char *name = setter == Setter::kInt      ? "int_option"
                     : setter == Setter::kDouble ? "dbl_option"
                                                 : "str_option";
  coptfindstr(h.get(), name, &nr, &ref);
  std::array<std::string, 1024> texts;
  for (size_t k = 0; k < texts.size(); ++k)
    texts[k] = "value_" + std::to_string(k);
  int failures = 0;
  int round = 0;
  for (auto _ : state) {
    round = (round + 1) & 1023;
    switch (setter) {
      case Setter::kInt:
        failures += optsetintnr(h.get(), nr, round) != 1;
        break;
      case Setter::kDouble:
        failures += optsetdblnr(h.get(), nr, round * 0.5) != 1;
        break;
      case Setter::kText:
        failures += coptsetstrnr(h.get(), nr, texts[static_cast<size_t>(round)].c_str()) != 1;
        break;
    }
  }
  if (failures > 0 || optmessagecount(h.get()) != queued) {
    state.SkipWithError("a setter failed or added a message");
    return;
  }
  state.counters["queued"] = queued;
}

struct Sizes {
  std::vector<int32_t> options;
  std::vector<int64_t> statements;
  std::vector<int64_t> unknown_names;
};

std::string Tag(const std::string &kind, int64_t options, int64_t statements) {
  return kind + "-" + std::to_string(options) + "-" + std::to_string(statements);
}

void RegisterParameters(const std::string &kind, const Sizes &sizes,
                        const std::function<Workload(int32_t, int64_t)> &make) {
  for (int32_t m : sizes.options)
    for (int64_t n : sizes.statements)
      benchmark::RegisterBenchmark(
          ("parameters/" + kind).c_str(),
          [=](benchmark::State &state) {
            ReadParameters(state, Files().Get(Tag(kind, m, n), [&] { return make(m, n); }));
          })
          ->Args({m, n})
          ->ArgNames({"options", "statements"})
          ->Unit(benchmark::kMillisecond);
}

void RegisterDefinitions(Method method, const Sizes &sizes) {
  const std::string kind = MethodName(method);
  for (int32_t m : sizes.options)
    benchmark::RegisterBenchmark(("definition/" + kind).c_str(),
                                 [=](benchmark::State &state) {
                                   ReadDefinition(state, Files().Get(Tag(kind, m, 0), [&] {
                                     return LookupWorkload(method, m, 0);
                                   }));
                                 })
        ->Arg(m)
        ->ArgName("options")
        ->Unit(benchmark::kMicrosecond)
        ->UseManualTime();
}

void RegisterSetters(const Sizes &sizes) {
  const std::array<std::pair<const char *, Setter>, 3> setters = {
      {{"setter/int_by_number", Setter::kInt},
       {"setter/double_by_number", Setter::kDouble},
       {"setter/text_by_number", Setter::kText}}};
  for (const auto &[name, setter] : setters)
    for (int64_t unknown : sizes.unknown_names)
      benchmark::RegisterBenchmark(name,
                                   [=, setter = setter](benchmark::State &state) {
                                     SetWithQueue(state, setter,
                                                  Files().Get(Tag("unknown", 0, unknown), [&] {
                                                    Workload w;
                                                    w.parameters = UnknownNames(unknown);
                                                    return w;
                                                  }));
                                   })
          ->Arg(unknown)
          ->ArgName("unknown_names_read");
}

void Register(const Sizes &sizes) {
  for (Method method : {Method::kNormal, Method::kPath, Method::kMinos})
    RegisterParameters(MethodName(method), sizes,
                       [method](int32_t m, int64_t n) { return LookupWorkload(method, m, n); });
  RegisterParameters("mixed_types", sizes, MixedWorkload);
  for (Method method : {Method::kNormal, Method::kPath, Method::kMinos})
    RegisterDefinitions(method, sizes);
  RegisterSetters(sizes);
}

}  // namespace
}  // namespace optkw::bench

int main(int argc, char **argv) {
  using optkw::bench::Sizes;
  Sizes sizes{{100, 1000, 10000}, {10000}, {0, 5000}};
  std::vector<char *> args;
  for (int k = 0; k < argc; ++k) {
    if (std::strcmp(argv[k], "--smoke") == 0) {
      sizes = Sizes{{10}, {100}, {0, 5000}};
    } else if (std::strcmp(argv[k], "--large") == 0) {
      sizes.statements = {10000, 100000, 1000000};
    } else {
      args.push_back(argv[k]);
    }
  }
  optkw::bench::Register(sizes);
  int count = static_cast<int>(args.size());
  benchmark::Initialize(&count, args.data());
  if (benchmark::ReportUnrecognizedArguments(count, args.data())) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
