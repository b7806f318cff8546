// Helpers shared by the tests: a database to work on, temporary files, the
// message queue as a client sees it, and standard output captured.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "containers/short_str.h"
#include "database/vlmoptions.h"

namespace optkw::test {

// A fresh handle, as optCreate makes it.
class Handle {
 public:
  Handle() : db(message_) {}

 private:
  ShortStr message_;

 public:
  tvlmoptions db;
};

// A directory of its own for a test, removed with everything in it afterwards.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir &) = delete;
  TempDir &operator=(const TempDir &) = delete;

  const std::filesystem::path &path() const { return path_; }
  // Writes `content` to a file in the directory and gives its full name.
  std::string Write(std::string_view name, std::string_view content) const;

 private:
  std::filesystem::path path_;
};

// Path of a file under tests/fixtures.
std::string Fixture(std::string_view name);

struct Message {
  std::string text;  // as optGetMessage decorates it
  int type;
  friend bool operator==(const Message &, const Message &) = default;
};
// Every message of the queue, in order, as a client fetches them.
std::vector<Message> Messages(tvlmoptions &db);
// Only the texts.
std::vector<std::string> MessageTexts(tvlmoptions &db);

// Reads a definition from text (written to a temporary file, so that lines count).
int ReadDefinitionText(tvlmoptions &db, std::string_view text);

// Collects what the code under test writes to standard output.
class CaptureStdout {
 public:
  CaptureStdout();
  ~CaptureStdout();
  CaptureStdout(const CaptureStdout &) = delete;
  CaptureStdout &operator=(const CaptureStdout &) = delete;
  // Stops capturing and gives what was written.
  std::string Finish();

 private:
  int saved_fd_ = -1;
  std::FILE *file_ = nullptr;
};

}  // namespace optkw::test
