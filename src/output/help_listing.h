// Help for people: the summary of the options by group, the alphabetical list
// with types, ranges and defaults, or the entry of one option. Every line is a
// message of type optMsgHelp; only the raw list of names goes to standard output.
#pragma once

#include "containers/short_str.h"
#include "database/vlmoptions.h"

namespace optkw {

// `request` is an option or synonym name, a listing mode (bits: 1 summary,
// 2 alphabetical list, 4 raw names on standard output, 8 marks deprecated
// options in the summary; 0 and below count as 3), or anything else for mode 1.
void optShowHelp(tvlmoptions &db, const ShortStr &request);

}  // namespace optkw
