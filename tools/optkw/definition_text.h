// The definition text as lines and statements, for the few checks that need
// what the library keeps to itself: where an option stands, the member lines of
// multilists and macros, the tokens of defaults and bounds as written, and the
// line at which a read stopped. Everything else comes from the library.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace optkw_tool {

struct TextLine {
  int number = 0;  // from 1
  std::string text;
};

struct Statement {
  int line = 0;
  std::string name;                    // with the leading "." of a dot option
  std::string type_word;               // lower case, without its ".modifier"
  std::vector<std::string> fields;     // the blank-separated words behind the type word
  std::vector<TextLine> continuation;  // the lines with a blank in column 1 below it
};

struct DefinitionText {
  std::vector<TextLine> lines;
  std::vector<Statement> statements;
  int lookup_code = 0;  // 0 Normal, 1 Path, 2 Minos: the last lookup statement's
};

// Reads the file; nullopt if it can't be opened.
std::optional<DefinitionText> ReadDefinitionText(const std::string &file);

// The statement of the option `key` that is its `occurrence`-th (from 0), or null.
const Statement *FindStatement(const DefinitionText &text, const std::string &key,
                               int occurrence = 0);

// The words of a line, split at blanks and tabs.
std::vector<std::string> Words(const std::string &line);

// Whether a statement of this type reads the indented lines below it.
bool TakesContinuationLines(const std::string &type_word);

std::string Lower(std::string text);
bool SameText(const std::string &a, const std::string &b);
std::string Quoted(const std::string &text);  // in double quotes, as messages show names

}  // namespace optkw_tool
