// The records that dot option, indicator and definedvar statements leave.
#pragma once

#include <cstdint>

#include "containers/heap_str.h"
#include "containers/lists.h"
#include "containers/string_lists.h"

namespace optkw {

// One dot option statement: key.suffix(elements) value.
class tdotobj {
 public:
  int32_t OptNr = 0;  // zero-based position of the dot option in Options
  double Value = 0;   // the number assigned, after the range step
  txstrings Uels;     // index elements; quoted ones keep their quotes
};

// Key of an entry: the variable's name.
using tdotobjlist = txstringlistobj<tdotobj>;

// One indicator or definedvar statement.
class tvarequmapitem {
 public:
  HeapStr EquName;
  txstrings EquUels;
  HeapStr VarName;
  txstrings VarUels;
  int8_t MapValue = 0;
};

class tvarequmaplist : public txlistobj<tvarequmapitem> {
 public:
  explicit tvarequmaplist(uint8_t kind) : MapKind(kind) {}

  tvarequmapitem *CurrentItem = nullptr;  // the entry being read
  uint8_t MapKind;
};

}  // namespace optkw
