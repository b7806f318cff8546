// The shared object loaded as a client loads it, with symbols looked up by name.
#pragma once

#include <dlfcn.h>

#include <string>

namespace optkw::test {

class LoadedLibrary {
 public:
  LoadedLibrary() : handle_(dlopen(OPTKW_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {}
  ~LoadedLibrary() {
    if (handle_) dlclose(handle_);
  }
  LoadedLibrary(const LoadedLibrary &) = delete;
  LoadedLibrary &operator=(const LoadedLibrary &) = delete;

  bool loaded() const { return handle_ != nullptr; }
  void *Find(const std::string &name) const { return dlsym(handle_, name.c_str()); }

  // The function `name` as the function type F.
  template <class F>
  F *Function(const std::string &name) const {
    return reinterpret_cast<F *>(Find(name));
  }

 private:
  void *handle_;
};

// A counted string as the interface passes it: the length byte, then the text.
inline std::string Counted(const std::string &text) {
  return std::string(1, static_cast<char>(text.size())) + text;
}
inline std::string FromCounted(const char *buffer) {
  return std::string(buffer + 1, static_cast<unsigned char>(buffer[0]));
}

}  // namespace optkw::test
