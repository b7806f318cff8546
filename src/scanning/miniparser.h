// tminiparser: the scanner under both readers.
//
// One instance serves one source: a file (or standard input for an empty name),
// a counted string, or a C string. It has one character of lookahead, FCh, which
// the readers above read directly, and no way of putting anything back. It never
// words a message: every operation answers with a boolean and the reader above
// supplies the text. The only messages it adds itself are echo lines.
//
// Lines of a file are delivered one at a time; empty lines and lines with "*" in
// column 1 never reach the readers. A string source is exactly one line. FCh is
// 10 at the end of a line and 26 (EndOfText) at the end of the source.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "containers/short_str.h"
#include "containers/string_lists.h"
#include "scanning/char_set.h"

namespace optkw {

inline constexpr char kEndOfText = 26;
inline constexpr char kLineEnd = 10;

// Why a file source ended before its real end: a read error, or a physical
// line so long that waiting for its line feed could last forever (a device
// such as /dev/zero never sends one).
enum class SourceFault : uint8_t { kNone, kReadError, kEndlessLine };

// Closes a file that the scanner opened itself; standard input stays open.
struct FileCloser {
  bool owned = true;
  void operator()(std::FILE *f) const {
    if (owned) std::fclose(f);
  }
};

class tminiparser {
 public:
  static constexpr int32_t kLineCapacity = 4 * ShortStr::kMaxLength;  // 1020
  // The most bytes one physical line may hold. Beyond the 1020 kept, the rest
  // of a line is skipped; past this many the source ends there instead.
  static constexpr size_t kMaxPhysicalLine = size_t{1} << 20;

  // `messages` receives the echo lines (with companion 0); it is borrowed.
  tminiparser(txstringlist<int32_t> *messages, bool echo, const EolCharSet &eol_comm);
  ~tminiparser();
  tminiparser(const tminiparser &) = delete;
  tminiparser &operator=(const tminiparser &) = delete;

  // Sources; exactly one is opened, right after construction.
  bool OpenFile(std::string_view name, int32_t &io_code);
  void OpenString(const ShortStr &text);
  void OpenPChar(const char *text);  // borrowed, any length

  // Lines and characters.
  void NextCh();
  bool NextLine();
  bool SkipBlanks();
  void SkipToLineEnd() { FCol = FLen; }

  // Tokens. Each starts at FCh and leaves FCh on the first character behind it.
  bool ReadToken(ShortStr &result);
  bool ReadIdent(ShortStr &result);
  bool ReadAlphaNum(ShortStr &result);
  bool ReadName(ShortStr &result);
  bool ReadSwitch(ShortStr &result, int32_t &count);
  ShortStr ReadRestOfLine();
  bool ReadInteger(int32_t &value);
  bool ReadDouble(double &value);
  bool ReadElement(ShortStr &result);
  bool AcceptChar(char expected);
  bool AcceptCharInSet(const CharSet &set, char &seen);
  bool SkipAssign();

  // Public state: the readers test FCh and FAtEnd, messages take FLineNr.
  char FCh = kEndOfText;
  bool FAtEnd = true;
  int32_t FLineNr = 0;
  bool FEcho = false;  // may be switched while a read is under way

  // A file source that ended early says why here; the reader above words it.
  SourceFault Fault() const { return fault_; }
  // The system's error code of a read error.
  int32_t FaultCode() const { return fault_code_; }

 private:
  enum class SourceKind : uint8_t { kFile, kShortStr, kPChar };

  char CharAt(int32_t col) const {
    return FSourceKind == SourceKind::kPChar ? FPChar[col - 1] : FLine[col - 1];
  }
  bool ReadFileLine();
  bool TakePhysicalLine();
  bool FillBuffer();
  bool OpenNonBlocking(const std::string &name, int &code);
  void EchoLine(std::string_view line);
  bool AtTokenEnd() const { return FCh == kLineEnd || FCh == kEndOfText; }

  std::unique_ptr<std::FILE, FileCloser> FFile;
  bool FFileOpen = false;
  char FLine[kLineCapacity];
  const char *FPChar = nullptr;
  int32_t FCol = 0;
  int32_t FLen = 0;
  SourceKind FSourceKind = SourceKind::kFile;
  txstringlist<int32_t> *FMessages;
  EolCharSet FEolComm;

  // Read-ahead of the file, so that lines are found without a call per byte.
  std::unique_ptr<char[]> buffer_;
  size_t buffer_pos_ = 0;
  size_t buffer_len_ = 0;
  bool file_exhausted_ = false;
  SourceFault fault_ = SourceFault::kNone;
  int32_t fault_code_ = 0;
  std::string name_;
};

}  // namespace optkw
