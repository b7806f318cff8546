// The shared object's load and unload notifications.
#include "api/library_frame.h"

namespace {

__attribute__((constructor)) void OnLoad() {
  optkw::LoadChain();
}
__attribute__((destructor)) void OnUnload() {
  optkw::UnloadChain();
}

}  // namespace
