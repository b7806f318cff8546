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
  void NextCh() {
    if (FCol < FLen && FCh != kEndOfText) {
      FCh = text_[FCol++];
    } else {
      StepOverLineEnd();
    }
  }
  bool NextLine();
  bool SkipBlanks() {
    if (FCh == ' ' || FCh == '\t') TakeWhile([](char c) { return IsBlank(c); });
    if (FEolComm.Has(FCh)) {
      TakeWhile([](char c) { return IsLineContent(c); });
      return false;
    }
    return !AtTokenEnd();
  }
  // Steps over the characters of the line up to the first 10 or 26, as NextCh
  // would one by one; the next line isn't read.
  void SkipRestOfLine() {
    TakeWhile([](char c) { return IsLineContent(c); });
  }
  // FCh goes on the line end; only for a caller that steps on right away.
  void SkipToLineEnd() { FCol = FLen; }

  // Takes FCh and the characters behind it on the line for as long as `keep`
  // accepts them, asking once per character and in order, and gives them as a
  // view into the line; FCh then stands on the first character refused. `keep`
  // never accepts 10 or 26. The view lasts until the scanner leaves the line.
  template <class Keep>
  std::string_view TakeWhile(Keep &&keep) {
    if (FCol < 1 || FCol > FLen || !keep(FCh)) return {};
    const char *start = text_ + FCol - 1;
    const char *end = text_ + FLen;
    const char *p = start + 1;
    while (p < end && keep(*p))
      ++p;
    if (p < end) {
      FCh = *p;
      FCol = static_cast<int32_t>(p - text_) + 1;
    } else {
      FCh = kLineEnd;
      FCol = FLen + 1;
    }
    return {start, static_cast<size_t>(p - start)};
  }
  // What a reader keeps of a run: all of it up to 255 characters; beyond, each
  // further character overwrites the last place, which leaves the first 254
  // and the last one (cut into `scratch`, and the view shows that).
  static std::string_view Capped(std::string_view run, ShortStr &scratch);
  static bool IsBlank(char c) { return c == ' ' || c == '\t'; }
  static bool IsLineContent(char c) { return c != kLineEnd && c != kEndOfText; }

  // Tokens. Each starts at FCh and leaves FCh on the first character behind it.
  bool ReadToken(ShortStr &result);
  // ReadToken as a view into the line; a token beyond 255 characters is cut
  // into `scratch` and the view shows that.
  bool ReadTokenView(std::string_view &result, ShortStr &scratch);
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

  char CharAt(int32_t col) const { return text_[col - 1]; }
  void StepOverLineEnd();
  bool ReadFileLine();
  bool TakePhysicalLine();
  bool TakeLineAcrossReads();
  bool FillBuffer();
  bool OpenNonBlocking(const std::string &name, int &code);
  void EchoLine(std::string_view line);
  bool AtTokenEnd() const { return FCh == kLineEnd || FCh == kEndOfText; }

  std::unique_ptr<std::FILE, FileCloser> FFile;
  bool FFileOpen = false;
  char FLine[kLineCapacity];
  const char *FPChar = nullptr;
  // The current line: FLine, the read-ahead of a file when the whole line
  // lies in it, or the C string.
  const char *text_ = FLine;
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
