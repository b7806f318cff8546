#include "definition_text.h"

#include <algorithm>
#include <cctype>
#include <fstream>

namespace optkw_tool {
namespace {

bool NameChar(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '/';
}

// A statement starts in column 1 with a name (after an optional ".").
std::optional<Statement> StatementOf(const TextLine &line) {
  const std::string &text = line.text;
  size_t at = text.size() > 0 && text[0] == '.' ? 1 : 0;
  if (at >= text.size() || !std::isalnum(static_cast<unsigned char>(text[at]))) return {};
  while (at < text.size() && NameChar(text[at]))
    ++at;
  Statement statement;
  statement.line = line.number;
  statement.name = text.substr(0, at);
  std::vector<std::string> words = Words(text.substr(at));
  if (!words.empty()) {
    statement.type_word = Lower(words[0].substr(0, words[0].rfind('.')));
    statement.fields.assign(words.begin() + 1, words.end());
  }
  return statement;
}

bool Skipped(const std::string &text) {
  return text.empty() || text[0] == '*';
}

int LookupCodeOf(const Statement &statement, int current) {
  if (statement.type_word != "lookup") return current;
  static const char *const kMethods[] = {"normal", "path", "minos"};
  for (int code = 0; code < 3; ++code)
    if (Lower(statement.name) == kMethods[code]) return code;
  return current;
}

}  // namespace

std::string Lower(std::string text) {
  for (char &c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

bool SameText(const std::string &a, const std::string &b) {
  return Lower(a) == Lower(b);
}

bool TakesContinuationLines(const std::string &type_word) {
  for (const char *word : {"integer", "double", "boolean", "enumstr", "enumint", "multilist",
                           "macro", "deprecated", "obsolete"})
    if (type_word == word) return true;
  return false;
}

std::string Quoted(const std::string &text) {
  return "\"" + text + "\"";
}

std::vector<std::string> Words(const std::string &line) {
  std::vector<std::string> words;
  size_t at = 0;
  while (true) {
    at = line.find_first_not_of(" \t\r", at);
    if (at == std::string::npos) break;
    const size_t end = std::min(line.find_first_of(" \t\r", at), line.size());
    words.push_back(line.substr(at, end - at));
    at = end;
  }
  return words;
}

std::optional<DefinitionText> ReadDefinitionText(const std::string &file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return {};
  DefinitionText text;
  std::string line;
  int number = 0;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    text.lines.push_back({++number, line});
  }
  // The reader stops at a line that can't start a statement where one is due;
  // what follows it defines nothing.
  for (const TextLine &entry : text.lines) {
    if (Skipped(entry.text)) continue;
    if (entry.text[0] == ' ' && !text.statements.empty() &&
        TakesContinuationLines(text.statements.back().type_word)) {
      text.statements.back().continuation.push_back(entry);
      continue;
    }
    std::optional<Statement> statement = StatementOf(entry);
    if (!statement) break;
    text.lookup_code = LookupCodeOf(*statement, text.lookup_code);
    text.statements.push_back(*statement);
  }
  return text;
}

const Statement *FindStatement(const DefinitionText &text, const std::string &key, int occurrence) {
  static const char *const kOptionTypes[] = {"integer", "double",   "string",    "boolean",
                                             "enumstr", "enumint",  "multilist", "strlist",
                                             "macro",   "immediate"};
  for (const Statement &statement : text.statements) {
    if (statement.name != key) continue;
    if (std::find(std::begin(kOptionTypes), std::end(kOptionTypes), statement.type_word) ==
        std::end(kOptionTypes))
      continue;
    if (occurrence-- == 0) return &statement;
  }
  return nullptr;
}

}  // namespace optkw_tool
