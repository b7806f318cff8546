#include "api/library_frame.h"

#include <memory>
#include <optional>
#include <type_traits>

#include "api/build_info.h"
#include "database/list_separator.h"
#include "scanning/text_ops.h"
#include "scanning/value_text.h"

namespace optkw {
namespace {

// The platform this library is built for: 1 is the Unix family.
constexpr int kPlatformCode = 1;

constexpr int32_t kAuditLength = 78;
constexpr int32_t kAuditNameColumn = 24;

// The audit record: created by the first load, disposed of by the last unload.
// It has no destructor of its own: the unload notification may come after the
// process has run the destructors of static objects.
std::optional<ShortStr> audit_record;
static_assert(std::is_trivially_destructible_v<std::optional<ShortStr>>);

// The build's audit line as it is carried in the binary, between two markers
// of six characters that the record doesn't keep.
ShortStr AuditLine() {
  return ShortStr("@(#)O[") + PadRightText("_Option Lib", kAuditNameColumn) +
         OPTKW_VERSION_TEXT " r" OPTKW_REVISION_TEXT " " OPTKW_RELEASE_DATE_TEXT
                            " " OPTKW_PLATFORM_TEXT "]O(#)@";
}

ShortStr WithoutMarkers(const ShortStr &line) {
  ShortStr text = line.view().substr(6, static_cast<size_t>(line.size() - 12));
  text = PadRightText(text.view(), kAuditLength);
  text.Truncate(kAuditLength);
  return text;
}

}  // namespace

int32_t LoadCount = 0;
ShortStr LoadPath;

void LoadChain() {
  if (++LoadCount != 1) return;
  audit_record.emplace(WithoutMarkers(AuditLine()));
  LoadPath.Clear();
  ListSeparatorChar = ListSeparatorFor(kPlatformCode);
}

void UnloadChain() {
  if (--LoadCount != 0) return;
  audit_record.reset();
}

ShortStr AuditText() {
  return audit_record ? *audit_record : WithoutMarkers(AuditLine());
}

void optVersion(tvlmoptions &, ShortStr &text) {
  text = AuditText();
}

tvlmoptions *CreateHandle() {
  ShortStr message;
  return std::make_unique<tvlmoptions>(message).release();
}

void FreeHandle(void *&handle) {
  std::unique_ptr<tvlmoptions> owned(static_cast<tvlmoptions *>(handle));
  handle = nullptr;
}

int32_t CheckApiVersion(int32_t api, ShortStr &message, int32_t &status) {
  status = 0;
  message = ShortStr("optkwlib: The API is too old for the used library, API version: ") +
            IntegerToText(api) + ", library version: " + IntegerToText(kLibraryVersion);
  if (api > kLibraryVersion) {
    status = 3;
    message = "optkwlib: API version is newer than this library.";
  } else if (api == kLibraryVersion) {
    status = 1;
    message = "optkwlib: API version and library version are the same.";
  } else if (api >= kOldestClientVersion) {
    status = 2;
    message = "optkwlib: Client version is compatible to this version of the library.";
  } else {
    return 0;
  }
  return 1;
}

}  // namespace optkw
