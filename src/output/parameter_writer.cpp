#include "output/parameter_writer.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "database/operations.h"
#include "scanning/system_error_text.h"
#include "scanning/value_text.h"

namespace optkw {
namespace {

// Writes lines to a file it opened, or to standard output, which stays open.
// The first write error is kept, and nothing more is written after it.
class LineSink {
 public:
  explicit LineSink(std::FILE *file, bool owned) : file_(file), owned_(owned) {}
  ~LineSink() {
    if (owned_) std::fclose(file_);
  }
  LineSink(const LineSink &) = delete;
  LineSink &operator=(const LineSink &) = delete;

  void Line(std::string_view text) {
    if (error_ != 0) return;
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), file_) != text.size() ||
        std::fputc('\n', file_) == EOF) {
      Failed();
    }
  }
  // Ends the output and gives the system error code of the first failed
  // write, or 0; an error that the buffer kept until now surfaces here.
  int Finish() {
    errno = 0;
    const bool failed = owned_ ? std::fclose(file_) != 0 : std::fflush(file_) != 0;
    owned_ = false;
    if (failed) Failed();
    return error_;
  }

 private:
  void Failed() {
    if (error_ == 0) error_ = errno != 0 ? errno : EIO;
  }

  std::FILE *file_;
  bool owned_;
  int error_ = 0;
};

// The two messages of a file that can't be written, at its open or later.
void CannotWrite(tvlmoptions &db, const ShortStr &fileName, int code) {
  db.AddMessage(optMsgUserError, ShortStr("Cannot write parameter file \"") + fileName + "\"");
  db.AddMessage(optMsgUserError,
                ShortStr("   Error code = ") + IntegerToText(code) + "; " + SystemErrorText(code));
}

std::string operator+(std::string left, const ShortStr &right) {
  return left.append(right.view());
}

// A value as it is written: in double quotes when it is empty or holds a blank,
// a tab or a comma; always in the handle's string quote when it has one.
ShortStr FormatValue(const tvlmoptions &db, const ShortStr &text) {
  const std::string_view quote = db.FStringQuote.view();
  if (!quote.empty()) return ShortStr(quote) + text + quote;
  if (text.empty()) return "\"\"";
  if (text.view().find_first_of(" \t,") != std::string_view::npos)
    return ShortStr("\"") + text + "\"";
  return text;
}

// "(a,b)" of a list of index elements, or nothing for an empty list.
std::string IndexList(const txstrings &elements) {
  if (elements.Count() == 0) return {};
  std::string text = "(";
  for (int32_t k = 0; k < elements.Count(); ++k) {
    if (k > 0) text += ',';
    text += elements.View(k);
  }
  return text + ")";
}

// The key of the first NoBounds immediate: values that weren't taken as given
// are bracketed by it, so that they read back as they are.
std::string NoBoundsKey(const tvlmoptions &db) {
  for (const auto &entry : db.Options) {
    ImmediateAction kind;
    if (entry.FObject->GetImmediateKind(kind) && kind == ImmediateAction::kNoBounds) {
      return std::string(entry.FString.view());
    }
  }
  return {};
}

void WriteOption(LineSink &out, const tvlmoptions &db, std::string_view key, toption &option) {
  const std::string separator(db.Separator.view());
  if (txstrings *list = option.StrListOrNull()) {
    for (int32_t k = 0; k < list->Count(); ++k) {
      out.Line(std::string(key) + separator + FormatValue(db, list->GetName(k)));
    }
    return;
  }
  if (option.OptType > optTypeEnumInt) return;  // multi-lists, macros, immediates
  const std::string name(db.DisplayName(key).view());
  if (option.SubType == optsubNoValue) {
    out.Line(name);
  } else if (option.SubType == optsub2Values) {
    out.Line(name + separator + FormatValue(db, option.ValueText(false)) + " " +
             FormatValue(db, option.ValueText(true)));
  } else {
    out.Line(name + separator + FormatValue(db, option.ValueText(false)));
  }
}

void WriteAll(LineSink &out, const tvlmoptions &db) {
  const std::string no_bounds = NoBoundsKey(db);
  for (const auto &entry : db.Options) {
    toption &option = *entry.FObject;
    const std::string_view key = entry.FString.view();
    if (option.Defined == 0 || key.substr(0, 1) == ".") continue;
    const bool bracket = option.DefinedM != 0 && !no_bounds.empty();
    if (bracket) out.Line(no_bounds + " 1");
    WriteOption(out, db, key, option);
    if (bracket) out.Line(no_bounds + " 0");
  }
  for (int32_t k = 0; k < db.DotOptions.Count(); ++k) {
    const tdotobj &record = *db.DotOptions.GetObject(k);
    out.Line(std::string(db.DotOptions.Key(k)) + std::string(db.Options.Key(record.OptNr)) +
             IndexList(record.Uels) + " = " + DoubleToText(record.Value));
  }
  if (db.Indicators) {
    for (const auto &item : *db.Indicators) {
      out.Line(std::string(db.IndicatorName.view()) + " " + std::string(item->EquName.view()) +
               IndexList(item->EquUels) + "$" + std::string(item->VarName.view()) +
               IndexList(item->VarUels) + "=" + IntegerToText(item->MapValue));
    }
  }
  if (db.DefinedVars) {
    for (const auto &item : *db.DefinedVars) {
      out.Line(std::string(db.DefinedVarName.view()) + " " + std::string(item->VarName.view()) +
               IndexList(item->VarUels) + " " + std::string(item->EquName.view()) +
               IndexList(item->EquUels));
    }
  }
}

}  // namespace

int32_t optWriteParameterFile(tvlmoptions &db, const ShortStr &fileName) {
  std::FILE *file = stdout;
  if (!fileName.empty()) {
    const std::string name(fileName.view());
    int code = ENOENT;  // no file system name holds a NUL byte
    file = nullptr;
    if (name.find('\0') == std::string::npos) {
      errno = 0;
      file = std::fopen(name.c_str(), "w");
      if (errno != 0) code = errno;
    }
    if (!file) {
      CannotWrite(db, fileName, code);
      return code;
    }
  }
  LineSink out(file, file != stdout);
  WriteAll(out, db);
  const int code = out.Finish();
  if (code != 0) CannotWrite(db, fileName, code);
  return code;
}

}  // namespace optkw
