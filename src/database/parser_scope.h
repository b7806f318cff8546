// A scanner for the length of one read: it becomes the handle's Parser (which
// gives messages their line prefix) and the previous one comes back on every
// way out, exceptions included. Reads nest: an inner read keeps the outer
// scanner here until it ends.
#pragma once

#include "database/vlmoptions.h"
#include "scanning/miniparser.h"

namespace optkw {

class ParserScope {
 public:
  ParserScope(tvlmoptions &db, const EolCharSet &comments)
      : db_(db), previous_(db.Parser), parser_(&db.Messages.EchoTarget(), db.Echo, comments) {
    db.Parser = &parser_;
  }
  ~ParserScope() { db_.Parser = previous_; }
  ParserScope(const ParserScope &) = delete;
  ParserScope &operator=(const ParserScope &) = delete;

  tminiparser &parser() { return parser_; }

 private:
  tvlmoptions &db_;
  tminiparser *previous_;
  tminiparser parser_;
};

}  // namespace optkw
