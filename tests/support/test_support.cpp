#include "support/test_support.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "database/operations.h"
#include "definition/definition_reader.h"

namespace optkw::test {

TempDir::TempDir() {
  std::random_device random;
  const auto base = std::filesystem::temp_directory_path();
  for (;;) {
    path_ = base / ("optkw-test-" + std::to_string(random()));
    if (std::filesystem::create_directory(path_)) break;
  }
}

TempDir::~TempDir() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TempDir::Write(std::string_view name, std::string_view content) const {
  const auto file = path_ / name;
  std::ofstream out(file, std::ios::binary);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
  return file.string();
}

std::string Fixture(std::string_view name) {
  return std::string(OPTKW_FIXTURES) + "/" + std::string(name);
}

std::vector<Message> Messages(tvlmoptions &db) {
  std::vector<Message> result;
  for (int nr = 1; nr <= optMessageCount(db); ++nr) {
    ShortStr text;
    int32_t type = 0;
    optGetMessage(db, nr, text, type);
    result.push_back({std::string(text.view()), type});
  }
  return result;
}

std::vector<std::string> MessageTexts(tvlmoptions &db) {
  std::vector<std::string> result;
  for (const Message &m : Messages(db))
    result.push_back(m.text);
  return result;
}

int ReadDefinitionText(tvlmoptions &db, std::string_view text) {
  TempDir dir;
  return optReadDefinition(db, ShortStr(dir.Write("definition.txt", text)));
}

CaptureStdout::CaptureStdout() {
  std::fflush(stdout);
  file_ = std::tmpfile();
  saved_fd_ = dup(fileno(stdout));
  dup2(fileno(file_), fileno(stdout));
}

CaptureStdout::~CaptureStdout() {
  Finish();
}

std::string CaptureStdout::Finish() {
  if (saved_fd_ < 0) return {};
  std::fflush(stdout);
  dup2(saved_fd_, fileno(stdout));
  close(saved_fd_);
  saved_fd_ = -1;
  std::string captured;
  std::rewind(file_);
  char buffer[4096];
  size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, file_)) > 0)
    captured.append(buffer, n);
  std::fclose(file_);
  return captured;
}

}  // namespace optkw::test
