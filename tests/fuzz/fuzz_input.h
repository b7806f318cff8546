// Puts a fuzz input where the readers take their text from: a file, since
// files are what the readers meet in practice (lines, comments, CR LF).
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace optkw::fuzz {

// A file of this process's own, rewritten for every input.
inline const std::string &InputFile(const uint8_t *data, size_t size) {
  static const std::string path = [] {
    const char *dir = std::getenv("TMPDIR");
    std::string name = std::string(dir ? dir : "/tmp") + "/optkw-fuzz-XXXXXX";
    const int fd = mkstemp(name.data());
    if (fd >= 0) close(fd);
    return name;
  }();
  if (std::FILE *f = std::fopen(path.c_str(), "wb")) {
    std::fwrite(data, 1, size, f);
    std::fclose(f);
  }
  return path;
}

}  // namespace optkw::fuzz
