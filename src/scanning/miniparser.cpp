// Sources, lines and characters of tminiparser. The token readers are in
// miniparser_tokens.cpp.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "scanning/miniparser.h"

namespace optkw {
namespace {

constexpr size_t kReadAhead = 64 * 1024;
constexpr size_t kEchoPiece = 130;
constexpr char kEchoMark = static_cast<char>(187);

}  // namespace

tminiparser::tminiparser(txstringlist<int32_t> *messages, bool echo, const EolCharSet &eol_comm)
    : FEcho(echo), FMessages(messages), FEolComm(eol_comm) {}

tminiparser::~tminiparser() = default;

// Opens without waiting for a writer: a FIFO that nobody writes to would block
// open() for ever. Once open, the descriptor blocks again, so a pipe whose
// writer is slow is read as it comes; with no writer at all it reads as empty.
bool tminiparser::OpenNonBlocking(const std::string &name, int &code) {
  const int fd = ::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) {
    code = errno;
    return false;
  }
  // A directory opens for reading here but can't be read: refuse it at the door.
  struct stat info;
  if (fstat(fd, &info) == 0 && S_ISDIR(info.st_mode)) {
    ::close(fd);
    code = EISDIR;
    return false;
  }
  const int flags = fcntl(fd, F_GETFL);
  if (flags >= 0) fcntl(fd, F_SETFL, flags & ~O_NONBLOCK);
  std::FILE *f = fdopen(fd, "rb");
  if (!f) {
    code = errno;
    ::close(fd);
    return false;
  }
  FFile = std::unique_ptr<std::FILE, FileCloser>(f, FileCloser{true});
  return true;
}

bool tminiparser::OpenFile(std::string_view name, int32_t &io_code) {
  name_ = std::string(name);
  int code = 0;
  if (name.empty()) {
    FFile = std::unique_ptr<std::FILE, FileCloser>(stdin, FileCloser{false});
  } else if (name.find('\0') != std::string_view::npos) {
    code = ENOENT;  // no file system name holds a NUL byte
  } else {
    OpenNonBlocking(name_, code);
  }
  FFileOpen = code == 0;
  FLineNr = 0;
  io_code = code;
  if (!FFileOpen) {
    FCh = kEndOfText;
    FAtEnd = true;
    return false;
  }
  FSourceKind = SourceKind::kFile;
  buffer_ = std::make_unique_for_overwrite<char[]>(kReadAhead);
  FAtEnd = !FillBuffer();
  return true;
}

void tminiparser::OpenString(const ShortStr &text) {
  FFileOpen = false;
  std::memcpy(FLine, text.data(), static_cast<size_t>(text.size()));
  text_ = FLine;
  FCol = -1;
  FLen = text.size();
  FSourceKind = SourceKind::kShortStr;
  FLineNr = 0;
  if (FEcho) EchoLine(text.view());
  FAtEnd = FLen == 0;
}

void tminiparser::OpenPChar(const char *text) {
  FFileOpen = false;
  FPChar = text ? text : "";
  text_ = FPChar;
  const size_t length = std::strlen(FPChar);
  FCol = -1;
  FLen = length > INT32_MAX ? INT32_MAX : static_cast<int32_t>(length);
  FSourceKind = SourceKind::kPChar;
  FLineNr = 0;
  if (FEcho) EchoLine(std::string_view(FPChar, static_cast<size_t>(FLen)));
  FAtEnd = FLen == 0;
}

bool tminiparser::FillBuffer() {
  if (file_exhausted_) return false;
  buffer_pos_ = 0;
  errno = 0;
  buffer_len_ = std::fread(buffer_.get(), 1, kReadAhead, FFile.get());
  if (std::ferror(FFile.get())) {
    // A read error ends the source: what was read stays read, and the reader
    // above reports the fault.
    fault_ = SourceFault::kReadError;
    fault_code_ = errno != 0 ? errno : EIO;
    buffer_len_ = 0;
  }
  if (buffer_len_ == 0) {
    file_exhausted_ = true;
    return false;
  }
  return true;
}

// Takes the next physical line: at most 1020 bytes are kept, the rest up to
// the line feed is dropped, and a carriage return at the line end is removed.
// Answers false at the end of the file.
bool tminiparser::TakePhysicalLine() {
  if (buffer_pos_ == buffer_len_ && !FillBuffer()) return false;
  // A line that lies whole in the read-ahead is read where it stands.
  const char *start = buffer_.get() + buffer_pos_;
  const size_t available = buffer_len_ - buffer_pos_;
  if (const void *lf = std::memchr(start, '\n', available)) {
    size_t content = static_cast<size_t>(static_cast<const char *>(lf) - start);
    buffer_pos_ += content + 1;
    if (content > 0 && start[content - 1] == '\r') --content;
    text_ = start;
    FLen = content < static_cast<size_t>(kLineCapacity) ? static_cast<int32_t>(content)
                                                        : kLineCapacity;
    return true;
  }
  text_ = FLine;
  return TakeLineAcrossReads();
}

// A line that goes on beyond the read-ahead is gathered in FLine.
bool tminiparser::TakeLineAcrossReads() {
  size_t length = 0;
  bool ends_in_cr = false;
  for (;;) {
    const char *start = buffer_.get() + buffer_pos_;
    const size_t available = buffer_len_ - buffer_pos_;
    const char *lf = static_cast<const char *>(std::memchr(start, '\n', available));
    const size_t segment = lf ? static_cast<size_t>(lf - start) : available;
    if (length < static_cast<size_t>(kLineCapacity)) {
      const size_t room = kLineCapacity - length;
      std::memcpy(FLine + length, start, segment < room ? segment : room);
    }
    if (segment > 0) ends_in_cr = start[segment - 1] == '\r';
    length += segment;
    buffer_pos_ += segment;
    if (lf) {
      ++buffer_pos_;
      break;
    }
    if (length > kMaxPhysicalLine) {
      // No line feed in sight: the rest of the source is given up.
      fault_ = SourceFault::kEndlessLine;
      file_exhausted_ = true;
      buffer_pos_ = buffer_len_ = 0;
      break;
    }
    if (!FillBuffer()) break;
  }
  const size_t content = length - (ends_in_cr ? 1 : 0);
  FLen =
      content < static_cast<size_t>(kLineCapacity) ? static_cast<int32_t>(content) : kLineCapacity;
  return true;
}

bool tminiparser::ReadFileLine() {
  for (;;) {
    if (!TakePhysicalLine()) {
      FLen = -1;
      FCh = kEndOfText;
      return false;
    }
    if (FLineNr < INT32_MAX) ++FLineNr;
    if (FEcho) EchoLine(std::string_view(text_, static_cast<size_t>(FLen)));
    // Empty lines and comment lines never reach the readers.
    if (FLen > 0 && text_[0] != '*') return true;
  }
}

void tminiparser::EchoLine(std::string_view line) {
  if (line.empty()) {
    FMessages->AddObject("", 0);
    return;
  }
  if (line.size() <= kEchoPiece) {
    FMessages->AddObject(ShortStr(" ") + line, 0);
    return;
  }
  // Long lines come in pieces of 130, each marked in front, and each full piece
  // marked behind as well when at least two more characters follow it.
  for (size_t offset = 0; offset < line.size(); offset += kEchoPiece) {
    const std::string_view piece = line.substr(offset, kEchoPiece);
    ShortStr text = ShortStr(std::string_view(&kEchoMark, 1)) + piece;
    if (line.size() - offset - piece.size() >= 2) text += kEchoMark;
    FMessages->AddObject(text, 0);
  }
}

// NextCh where the current line has no character left behind FCh.
void tminiparser::StepOverLineEnd() {
  if (FCh == kEndOfText) return;  // the end of the text is sticky
  if (FCol < FLen) {
    ++FCol;
    FCh = CharAt(FCol);
  } else if (FCol == FLen) {
    FCh = kLineEnd;
    ++FCol;
  } else if (FSourceKind != SourceKind::kFile) {
    FCh = kEndOfText;
  } else {
    // A file walks on across line ends by itself.
    FCol = 0;
    if (ReadFileLine()) {
      FCol = 1;
      FCh = CharAt(1);
    }
  }
}

bool tminiparser::NextLine() {
  if (FSourceKind == SourceKind::kFile) {
    FCol = 0;
    if (!FFileOpen || !ReadFileLine()) return false;
    FCol = 1;
    FCh = CharAt(1);
    return true;
  }
  if (FCol < 1) {
    // A string source is one line: the first call delivers it...
    FCol = 1;
    FCh = FLen > 0 ? CharAt(1) : kEndOfText;
    return FLen > 0;
  }
  // ...and any later call ends it.
  FLen = 0;
  return false;
}

}  // namespace optkw
