// optkw.hpp -- the C++ interface of optkw, header-only, over the C interface in optkw.h.
//
// An optkw::Options owns one handle of the library: it reads a definition, takes parameter
// text from files, strings and command lines, and answers by option number or by name.
//
//   optkw::Options opts;
//   opts.read_definition("solver.def");  // throws optkw::FileError if it can't be opened
//   opts.read_parameter_file("solver.opt");
//   for (const optkw::Message &m : opts.messages()) std::cerr << m.text << '\n';
//   int limit = opts.get_int("iteration_limit").value_or(100);
//
// How results come back:
//  - A file that can't be opened throws optkw::FileError, a std::system_error with the
//    system's error code; the library's own messages about it stay in the queue. Everything
//    else the library has to say goes into the message queue, and the readers return true
//    when the read added no error message.
//  - Getters return std::optional, empty for an unknown option or an option of another type.
//    Setters return false for those, and for a value the library refused or had to change
//    (the queue says why). Nothing is printed: a name is looked up first (options and
//    synonyms, in any case) and the value is then read or set by number.
//  - Option numbers count from 1 to count(); number 1 is the built-in option "Help".
//
// Texts go in as std::string_view and come out as std::string. The library keeps at most
// 255 bytes of a name or a value: a longer name is not found and a longer value is refused
// (the setter gives false); neither is cut or replaced. Parameter text and command lines may
// be of any length. A handle must not be used from two threads at once.
//
// Needs C++17 or later.
#ifndef OPTKW_HPP
#define OPTKW_HPP

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "optkw.h"
#include "optkw_suggest.hpp"

namespace optkw {

/// The type of an option: the keyword of its definition statement.
enum class OptionType : int {
  Integer = optTypeInteger,
  Double = optTypeDouble,
  String = optTypeString,
  Boolean = optTypeBoolean,
  EnumStr = optTypeEnumStr,
  EnumInt = optTypeEnumInt,
  MultiList = optTypeMultiList,
  StrList = optTypeStrList,
  Macro = optTypeMacro,
  Immediate = optTypeImmediate,
};

/// The type of a message in the queue.
enum class MessageType : int {
  InputEcho = optMsgInputEcho,
  Help = optMsgHelp,
  DefineError = optMsgDefineError,
  ValueError = optMsgValueError,
  ValueWarning = optMsgValueWarning,
  Deprecated = optMsgDeprecated,
  FileEnter = optMsgFileEnter,
  FileLeave = optMsgFileLeave,
  TooManyMessages = optMsgTooManyMsgs,
  UserError = optMsgUserError,
};

/// The keyword of an option type, as definition text spells it ("integer").
inline const char *to_string(OptionType type) noexcept {
  static const char *const names[] = {"integer", "double",    "string",  "boolean", "enumstr",
                                      "enumint", "multilist", "strlist", "macro",   "immediate"};
  const int k = static_cast<int>(type);
  return k >= 0 && k < 10 ? names[k] : "unknown";
}
inline std::ostream &operator<<(std::ostream &out, OptionType type) {
  return out << to_string(type);
}

/// The name of a message type, as the C header spells it ("optMsgValueError").
inline const char *to_string(MessageType type) noexcept {
  static const char *const names[] = {"optMsgInputEcho",  "optMsgHelp",         "optMsgDefineError",
                                      "optMsgValueError", "optMsgValueWarning", "optMsgDeprecated",
                                      "optMsgFileEnter",  "optMsgFileLeave",    "optMsgTooManyMsgs",
                                      "optMsgUserError"};
  const int k = static_cast<int>(type);
  return k >= 0 && k < 10 ? names[k] : "unknown";
}
inline std::ostream &operator<<(std::ostream &out, MessageType type) {
  return out << to_string(type);
}

/// One message of the queue.
struct Message {
  std::string text;  ///< As the library shows it, e.g. "*** Value Error line 3: ...".
  MessageType type;  ///< Its type.

  /// True for the types that Options::error_count() counts.
  bool is_error() const noexcept {
    return type == MessageType::DefineError || type == MessageType::ValueError ||
           type == MessageType::TooManyMessages || type == MessageType::UserError;
  }
  /// True for the types that Options::warning_count() counts.
  bool is_warning() const noexcept {
    return type == MessageType::ValueWarning || type == MessageType::Deprecated;
  }
};

/// What the definition says about an option, and whether it is set.
struct OptionInfo {
  int number = 0;           ///< 1 to count().
  std::string name;         ///< Its name (with blanks for "_" under the Minos lookup).
  OptionType type{};        ///< Its type.
  int ref_nr = 0;           ///< The client's reference number.
  int group = 0;            ///< Its group number (0 for none).
  bool defined = false;     ///< Its (first) value is set.
  bool recent = false;      ///< Its (first) value was set since the last recent reset.
  bool two_values = false;  ///< It takes two values (".TWO" in the definition).
  std::string help;         ///< The first line of its help text.
};

/// Lower and upper bound and default of a numeric option.
template <class T>
struct Bounds {
  T lower;
  T upper;
  T default_value;
};

/// One of the values an enumerated option takes.
struct EnumValue {
  std::string text;  ///< The value as the definition spells it (digits for an enumint).
  int number;        ///< The value of an enumint option; 0 for an enumstr option.
  std::string help;  ///< Its help text.
};

/// A file that couldn't be opened. code() is the system's error code.
class FileError : public std::system_error {
 public:
  FileError(std::error_code code, const std::string &path)
      : std::system_error(code, "optkw: \"" + path + "\""), path_(path) {}
  /// The file name as it was given.
  const std::string &path() const noexcept { return path_; }

 private:
  std::string path_;
};

/// An option as the accessors take it: by number (1 to count()) or by name (an option name
/// or a synonym, in any case). Converts implicitly from both.
class OptionRef {
 public:
  OptionRef(int nr) noexcept : nr_(nr) {}
  OptionRef(std::string_view name) noexcept : name_(name), by_name_(true) {}
  OptionRef(const char *name) noexcept : OptionRef(std::string_view(name)) {}
  OptionRef(const std::string &name) noexcept : OptionRef(std::string_view(name)) {}

 private:
  friend class Options;
  int nr_ = 0;
  std::string_view name_;
  bool by_name_ = false;
};

namespace detail {

// A counted string for the library: a length byte, then up to 255 bytes. A longer text
// doesn't fit: it is cut when `cut`, else passed as the empty text.
class CountedIn {
 public:
  explicit CountedIn(std::string_view text, bool cut = false) noexcept
      : fits_(text.size() < OPTKW_STRBUF_SIZE) {
    if (!fits_) text = cut ? text.substr(0, OPTKW_STRBUF_SIZE - 1) : std::string_view();
    buffer_[0] = static_cast<char>(static_cast<unsigned char>(text.size()));
    text.copy(buffer_ + 1, text.size());
  }
  bool fits() const noexcept { return fits_; }
  const char *get() const noexcept { return buffer_; }

 private:
  char buffer_[OPTKW_STRBUF_SIZE] = {};
  bool fits_;
};

// A buffer that receives a counted string; the empty text until the library writes it.
class CountedOut {
 public:
  char *get() noexcept { return buffer_; }
  std::string str() const {
    return std::string(buffer_ + 1, static_cast<unsigned char>(buffer_[0]));
  }

 private:
  char buffer_[OPTKW_STRBUF_SIZE] = {};
};

inline void check_open(int code, std::string_view path) {
  if (code > 0) throw FileError(std::error_code(code, std::generic_category()), std::string(path));
}

}  // namespace detail

/// A handle of the library with all it holds: the options of one definition, their values
/// and the message queue. Movable, not copyable; a moved-from object may only be destroyed
/// or assigned to.
class Options {
 public:
  /// Creates a handle with an empty option table. Throws std::bad_alloc if it can't.
  Options() {
    char message[OPTKW_STRBUF_SIZE] = {};
    if (optCreate(&h_, message, OPTKW_STRBUF_SIZE - 1) == 0 || h_ == nullptr)
      throw std::bad_alloc();
  }
  /// Frees the handle.
  ~Options() { optFree(&h_); }
  Options(const Options &) = delete;
  Options &operator=(const Options &) = delete;
  /// Takes over the handle of `other`.
  Options(Options &&other) noexcept
      : h_(std::exchange(other.h_, nullptr)), definitions_(std::move(other.definitions_)) {}
  /// Frees the own handle and takes over the handle of `other`.
  Options &operator=(Options &&other) noexcept {
    if (this != &other) {
      optFree(&h_);
      h_ = std::exchange(other.h_, nullptr);
      definitions_ = std::move(other.definitions_);
    }
    return *this;
  }

  /// The C handle, for the operations of optkw.h that this class doesn't offer.
  optHandle_t handle() const noexcept { return h_; }
  /// False once the handle has been moved away.
  bool valid() const noexcept { return h_ != nullptr; }

  // ---- Reading and writing --------------------------------------------------------------

  /// Reads the definition file `path`. Returns true when the read added no error message.
  /// Throws FileError when the file can't be opened. Read one definition per handle.
  bool read_definition(std::string_view path) {
    const int before = error_count();
    detail::check_open(optReadDefinition(h_, file_name(path).get()), path);
    // Kept, so that changed() can ask a handle with nothing set for the defaults.
    std::ifstream file{std::string(path), std::ios::binary};
    definitions_.emplace_back(std::istreambuf_iterator<char>(file),
                              std::istreambuf_iterator<char>());
    return error_count() == before;
  }

  /// Reads a definition from `text` of any number of lines. The text goes through a temporary
  /// file, so that it is read exactly as a file is, and messages carry line numbers. Returns
  /// as read_definition(); throws FileError when the temporary file can't be written.
  bool read_definition_text(std::string_view text) {
    std::error_code ec;
    const std::filesystem::path dir = std::filesystem::temp_directory_path(ec);
    if (ec) throw FileError(ec, "temporary directory");
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
      const std::string path = (dir / ("optkw-" + std::to_string(random()) + ".def")).string();
      std::FILE *file = std::fopen(path.c_str(), "wx");  // fails if the file exists
      if (file == nullptr && errno == EEXIST) continue;
      if (file == nullptr) throw FileError(std::error_code(errno, std::generic_category()), path);
      struct Remover {
        const std::string &path;
        ~Remover() { std::remove(path.c_str()); }
      } remover{path};
      const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
      if (std::fclose(file) != 0 || !written)
        throw FileError(std::make_error_code(std::errc::io_error), path);
      return read_definition(path);
    }
    throw FileError(std::make_error_code(std::errc::file_exists), dir.string());
  }

  /// Reads the parameter file `path` (standard input for an empty name). Returns true when
  /// the read added no error message. Throws FileError when the file can't be opened.
  bool read_parameter_file(std::string_view path) {
    const int before = error_count();
    detail::check_open(optReadParameterFile(h_, file_name(path).get()), path);
    return error_count() == before;
  }

  /// Reads parameter text of any length and any number of lines, line by line as a file is
  /// read: empty lines and lines with a "*" in column 1 are skipped, a carriage return at a
  /// line end is dropped. Messages carry no line numbers. Returns true when the read added no
  /// error message.
  bool read_parameters(std::string_view text) {
    const int before = error_count();
    while (!text.empty()) {
      const std::size_t end = text.find('\n');
      std::string line(text.substr(0, end));
      text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (!line.empty() && line[0] != '*') optReadFromPChar(h_, line.c_str());
    }
    return error_count() == before;
  }

  /// Reads a command line of any length, e.g. "maxiter=50 mode=full": each value is one
  /// token (a value with blanks stands in double quotes), so a line holds any number of
  /// options, whatever set_eol_only() says for other sources. A key that begins with "--"
  /// and names no option adds its value to a string list of that name ("--tag x").
  /// Returns true when the read added no error message.
  bool read_command_line(std::string_view text) {
    const int before = error_count();
    const int former = optEOLOnlySet(h_, 0);
    optReadFromCmdLine(h_, std::string(text).c_str());
    optEOLOnlySet(h_, former);
    return error_count() == before;
  }

  /// Writes what is set as a parameter file to `path` (standard output for an empty name).
  /// Throws FileError when the file can't be opened or a write fails (a full disk).
  void write_parameter_file(std::string_view path) {
    detail::check_open(optWriteParameterFile(h_, file_name(path).get()), path);
  }

  // ---- Messages -------------------------------------------------------------------------

  /// Number of messages in the queue.
  int message_count() const { return optMessageCount(h_); }
  /// The messages from number `first` (counting from 1) on, in order.
  std::vector<Message> messages(int first = 1) const {
    std::vector<Message> result;
    for (int nr = first < 1 ? 1 : first; nr <= message_count(); ++nr) {
      detail::CountedOut text;
      int type = 0;
      optGetMessage(h_, nr, text.get(), &type);
      result.push_back({text.str(), static_cast<MessageType>(type)});
    }
    return result;
  }
  /// Number of errors in the queue (see Message::is_error()).
  int error_count() const { return counts().first; }
  /// Number of warnings in the queue (see Message::is_warning()).
  int warning_count() const { return counts().second; }
  /// Empties the message queue.
  void clear_messages() { optClearMessages(h_); }
  /// Adds a message of type UserError ("*** Error " + text); a text beyond 255 bytes is cut.
  void add_message(std::string_view text) {
    optAddMessage(h_, detail::CountedIn(text, true).get());
  }

  /// The help lines for `request`: an option name, synonym or abbreviation gives its entry;
  /// the empty text or an unknown name the summary by group; a number the listing of that
  /// mode (bits: 1 summary, 2 alphabetical list, 8 mark deprecated options; 4 prints the bare
  /// names to standard output, as the library does). The lines also stay in the message queue.
  std::vector<std::string> help(std::string_view request = {}) {
    const int before = message_count();
    optShowHelp(h_, detail::CountedIn(request).get());
    std::vector<std::string> lines;
    for (Message &m : messages(before + 1))
      if (m.type == MessageType::Help) lines.push_back(std::move(m.text));
    return lines;
  }

  // ---- Options of the definition --------------------------------------------------------

  /// Number of options, "Help" included.
  int count() const { return optCount(h_); }
  /// The number of the option that `name` finds (an option name or a synonym, in any case).
  std::optional<int> find(std::string_view name) const {
    const detail::CountedIn key(name);
    int nr = -1, ref_nr = -1;
    if (!key.fits() || optFindStr(h_, key.get(), &nr, &ref_nr) == 0) return std::nullopt;
    return nr;
  }

  /// What the definition says about an option, and whether it is set.
  std::optional<OptionInfo> info(OptionRef option) const {
    const int nr = number(option);
    int defined = 0, recent = 0, ref_nr = 0, data_type = 0, type = 0, sub_type = 0;
    if (optGetInfoNr(h_, nr, &defined, &recent, &ref_nr, &data_type, &type, &sub_type) == 0)
      return std::nullopt;
    detail::CountedOut name, key, help;
    optGetNameNr(h_, nr, name.get());
    optGetHelpNr(h_, nr, key.get(), help.get());
    return OptionInfo{nr,
                      name.str(),
                      static_cast<OptionType>(type),
                      ref_nr,
                      optGetOptGroupNr(h_, nr),
                      (defined & 1) != 0,
                      (recent & 1) != 0,
                      sub_type == optsub2Values,
                      help.str()};
  }
  /// Bounds and default of an integer option.
  std::optional<Bounds<int>> int_bounds(OptionRef option) const {
    Bounds<int> b{};
    if (optGetBoundsInt(h_, number(option), &b.lower, &b.upper, &b.default_value) == 0) return {};
    return b;
  }
  /// Bounds and default of a double option.
  std::optional<Bounds<double>> double_bounds(OptionRef option) const {
    Bounds<double> b{};
    if (optGetBoundsDbl(h_, number(option), &b.lower, &b.upper, &b.default_value) == 0) return {};
    return b;
  }
  /// Default of a string option (not of an enumstr option: the library doesn't give that).
  std::optional<std::string> string_default(OptionRef option) const {
    detail::CountedOut value;
    if (optGetDefaultStr(h_, number(option), value.get()) == 0) return std::nullopt;
    return value.str();
  }
  /// The values of an enumerated option, in the order of the definition; empty for others.
  std::vector<EnumValue> enum_values(OptionRef option) const {
    const int nr = number(option);
    int n = 0;  // -1 for an option that isn't enumerated
    optGetEnumCount(h_, nr, &n);
    std::vector<EnumValue> values;
    for (int k = 1; k <= n; ++k) {
      detail::CountedOut text, help;
      int value = 0, hc = 0;
      optGetEnumValue(h_, nr, k, &value, text.get());
      optGetEnumHelp(h_, nr, k, &hc, help.get());
      values.push_back({text.str(), value, help.str()});
    }
    return values;
  }

  // ---- Values: a getter gives what is set, else the default -----------------------------

  /// Value of an integer, boolean or enumint option.
  std::optional<int> get_int(OptionRef option) const {
    int value = 0;
    if (optGetIntNr(h_, number(option), &value) == 0) return std::nullopt;
    return value;
  }
  /// Value of a double option.
  std::optional<double> get_double(OptionRef option) const {
    double value = 0;
    if (optGetDblNr(h_, number(option), &value) == 0) return std::nullopt;
    return value;
  }
  /// Value of a string or enumstr option.
  std::optional<std::string> get_string(OptionRef option) const {
    const int nr = number(option);
    return kind(nr).first == optDataString ? get_text(nr) : std::nullopt;
  }
  /// Value of any option as text, as the library renders it ("1E-8"); empty for the types
  /// without a value (lists, macros, immediates).
  std::optional<std::string> get_text(OptionRef option) const {
    detail::CountedOut value;
    if (optGetStrNr(h_, number(option), value.get()) == 0) return std::nullopt;
    return value.str();
  }
  /// The entries of a strlist option, in the order they were set.
  std::optional<std::vector<std::string>> get_list(OptionRef option) const {
    detail::CountedOut key, help;
    if (optGetHelpNr(h_, number(option), key.get(), help.get()) == 0) return std::nullopt;
    const detail::CountedIn name(key.str());
    const int n = optListCountStr(h_, name.get());
    if (n < 0) return std::nullopt;
    std::vector<std::string> entries;
    for (int k = 1; k <= n; ++k) {
      detail::CountedOut entry;
      optReadFromListStr(h_, name.get(), k, entry.get());
      entries.push_back(entry.str());
    }
    return entries;
  }

  /// Sets an integer, boolean or enumint option. False for another type, and when the
  /// library reported an error: a number out of range is then set to the bound it passed
  /// (under set_no_bounds(true) that is a warning, and the result is true).
  bool set_int(OptionRef option, int value) { return optSetIntNr(h_, number(option), value) != 0; }
  /// Sets a double option; false as for set_int().
  bool set_double(OptionRef option, double value) {
    return optSetDblNr(h_, number(option), value) != 0;
  }
  /// Sets a string or enumstr option. False for another type, a value beyond 255 bytes or
  /// with a double quote, and a value that an enumstr option doesn't list.
  bool set_string(OptionRef option, std::string_view value) {
    const int nr = number(option);
    return kind(nr).first == optDataString && set_text(nr, value);
  }
  /// Sets any option from text, exactly as parameter text would ("yes" for a boolean, one
  /// more entry for a strlist). False when the library reported an error, for a value beyond
  /// 255 bytes, and for an immediate option (those act in parameter text only).
  bool set_text(OptionRef option, std::string_view value) {
    const int nr = number(option);
    const detail::CountedIn text(value);
    const int type = kind(nr).second;
    if (!text.fits() || type < 0 || type == optTypeImmediate) return false;
    return optSetStrNr(h_, nr, text.get()) != 0;
  }
  /// Both values of an option that takes two (".TWO" in the definition).
  std::optional<std::pair<int, int>> get_int_pair(OptionRef option) const {
    const int nr = number(option);
    int first = 0, second = 0;
    if (optGetIntNr(h_, nr, &first) == 0 || optGetInt2Nr(h_, nr, &second) == 0) return std::nullopt;
    return std::pair{first, second};
  }
  std::optional<std::pair<double, double>> get_double_pair(OptionRef option) const {
    const int nr = number(option);
    double first = 0, second = 0;
    if (optGetDblNr(h_, nr, &first) == 0 || optGetDbl2Nr(h_, nr, &second) == 0) return std::nullopt;
    return std::pair{first, second};
  }
  std::optional<std::pair<std::string, std::string>> get_text_pair(OptionRef option) const {
    const int nr = number(option);
    detail::CountedOut first, second;
    if (optGetStrNr(h_, nr, first.get()) == 0 || optGetStr2Nr(h_, nr, second.get()) == 0)
      return std::nullopt;
    return std::pair{first.str(), second.str()};
  }
  /// Sets both values of an option that takes two; false as for set_int(), and for an option
  /// that takes one value.
  bool set_int_pair(OptionRef option, int first, int second) {
    const int nr = number(option);
    return two_values(nr) && (optSetIntNr(h_, nr, first) & optSetInt2Nr(h_, nr, second)) != 0;
  }
  bool set_double_pair(OptionRef option, double first, double second) {
    const int nr = number(option);
    return two_values(nr) && (optSetDblNr(h_, nr, first) & optSetDbl2Nr(h_, nr, second)) != 0;
  }
  bool set_text_pair(OptionRef option, std::string_view first, std::string_view second) {
    const int nr = number(option);
    const detail::CountedIn one(first), two(second);
    return two_values(nr) && one.fits() && two.fits() &&
           (optSetStrNr(h_, nr, one.get()) & optSetStr2Nr(h_, nr, two.get())) != 0;
  }
  /// Unsets an option: it has its default again. False for an unknown option.
  bool reset(OptionRef option) { return optResetNr(h_, number(option)) != 0; }

  /// The type of an option.
  std::optional<OptionType> option_type(OptionRef option) const {
    const int type = kind(number(option)).second;
    if (type < 0) return std::nullopt;
    return static_cast<OptionType>(type);
  }

  /// The numbers of the options whose effective value differs from their default (a
  /// string list: that holds entries), in the order of the definition.
  /// Numbers refer to this handle; an option made by parameter text (a "--" key) counts
  /// when its list holds entries.
  std::vector<int> changed() const {
    Options defaults;
    for (const std::string &text : definitions_)
      defaults.read_definition_text(text);
    std::vector<int> numbers;
    for (int nr = 1; nr <= count(); ++nr) {
      if (differs_from(defaults, nr)) numbers.push_back(nr);
    }
    return numbers;
  }

  // ---- Suggestions: what a user may have meant (optkw_suggest.hpp) ----------------------

  /// Names of options and synonyms close to `name`, the nearest first; at most three.
  std::vector<std::string> suggest(std::string_view name) const {
    std::vector<std::string> names;
    for (int nr = 1; nr <= count(); ++nr) {
      detail::CountedOut option_name;
      optGetNameNr(h_, nr, option_name.get());
      if (option_name.str().rfind('.', 0) != 0) names.push_back(option_name.str());
    }
    for (int pos = 1; pos <= optSynonymCount(h_); ++pos) {
      detail::CountedOut synonym, target;
      optGetSynonym(h_, pos, synonym.get(), target.get());
      names.push_back(synonym.str());
    }
    return ClosestNames(name, names);
  }
  /// Values of an enumerated option close to `text`, the nearest first; at most three.
  std::vector<std::string> suggest_value(OptionRef option, std::string_view text) const {
    std::vector<std::string> values;
    for (const EnumValue &value : enum_values(option))
      values.push_back(value.text);
    return ClosestNames(text, values);
  }

  // ---- Resets and switches --------------------------------------------------------------

  /// Unsets every option and empties the message queue.
  void reset_all() { optResetAll(h_); }
  /// Keeps all values but marks none of them as recent.
  void reset_all_recent() { optResetAllRecent(h_); }
  /// Unsets every option that was set since the last recent reset.
  void reset_recent_changes() { optResetRecentChanges(h_); }
  /// Echoes every line read into the message queue (type InputEcho).
  void set_echo(bool on) { optEchoSet(h_, on ? 1 : 0); }
  /// Brings numbers out of range in with warnings instead of errors, and lets boolean and
  /// enumerated values out of range through with warnings.
  void set_no_bounds(bool on) { optNoBoundsSet(h_, on ? 1 : 0); }
  /// On (the default): a value runs to the end of its line; off: a value is one token, so a
  /// line may hold several options. Returns the former setting.
  bool set_eol_only(bool on) { return optEOLOnlySet(h_, on ? 1 : 0) != 0; }

  /// The library's audit line.
  std::string version() const {
    detail::CountedOut text;
    optVersion(h_, text.get());
    return text.str();
  }

 private:
  // The number of an option; 0, which every operation refuses, for an unknown name.
  int number(const OptionRef &option) const {
    return option.by_name_ ? find(option.name_).value_or(0) : option.nr_;
  }
  // Data type and option type of option `nr`; -1 for both for a bad number.
  std::pair<int, int> kind(int nr) const {
    int defined = 0, recent = 0, ref_nr = 0, data = -1, type = -1, sub_type = 0;
    optGetInfoNr(h_, nr, &defined, &recent, &ref_nr, &data, &type, &sub_type);
    return {data, type};
  }
  bool two_values(int nr) const {
    int defined = 0, recent = 0, ref_nr = 0, data = -1, type = -1, sub_type = -1;
    optGetInfoNr(h_, nr, &defined, &recent, &ref_nr, &data, &type, &sub_type);
    return sub_type == optsub2Values;
  }
  // Whether option `nr` holds another value than in `defaults`, where nothing is set.
  bool differs_from(const Options &defaults, int nr) const {
    const auto type = kind(nr).second;
    if (type == optTypeStrList) {
      const auto list = get_list(nr);
      return list && !list->empty();
    }
    if (type < 0 || type > optTypeEnumInt || nr > defaults.count()) return false;
    return get_text(nr) != defaults.get_text(nr) ||
           (two_values(nr) && get_text_pair(nr) != defaults.get_text_pair(nr));
  }
  std::pair<int, int> counts() const {
    int errors = 0, warnings = 0;
    optErrorCount(h_, &errors, &warnings);
    return {errors, warnings};
  }
  static detail::CountedIn file_name(std::string_view path) {
    detail::CountedIn name(path);
    if (!name.fits())
      throw FileError(std::make_error_code(std::errc::filename_too_long), std::string(path));
    return name;
  }

  optHandle_t h_ = nullptr;
  std::vector<std::string> definitions_;  // every definition text read, in order
};

}  // namespace optkw

#endif  // OPTKW_HPP
