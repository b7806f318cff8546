#include "help_listing.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "help_pieces.h"

namespace optkw_tool {
namespace {

// The library's sorted names, from the bare list that mode 4 writes on
// standard output: one line per name, synonyms marked.
std::vector<SortedEntry> CaptureSortedNames(optHandle_t h) {
  std::vector<SortedEntry> entries;
  std::FILE *capture = std::tmpfile();
  if (!capture) return entries;
  std::fflush(stdout);
  const int saved = dup(STDOUT_FILENO);
  dup2(fileno(capture), STDOUT_FILENO);
  coptShowHelp(h, "4");
  std::fflush(stdout);
  dup2(saved, STDOUT_FILENO);
  close(saved);
  std::rewind(capture);
  std::string text;
  char buffer[4096];
  size_t got;
  while ((got = std::fread(buffer, 1, sizeof buffer, capture)) > 0)
    text.append(buffer, got);
  std::fclose(capture);
  std::istringstream lines(text);
  std::string line;
  const std::string synonym_mark = " *****Nil = Syn";
  while (std::getline(lines, line)) {
    if (line.empty()) continue;
    const bool synonym =
        line.size() >= synonym_mark.size() &&
        line.compare(line.size() - synonym_mark.size(), synonym_mark.size(), synonym_mark) == 0;
    entries.push_back(
        {line.substr(0, line.size() - (synonym ? synonym_mark.size() : 1)), synonym, 0});
  }
  return entries;
}

bool Overflowed(const std::vector<Message> &messages) {
  for (const Message &message : messages)
    if (message.type == optMsgTooManyMsgs) return true;
  return false;
}

}  // namespace

bool ListingMode(const std::string &request, int &mode) {
  // The library reads a mode as an optional sign and decimal digits, or
  // hexadecimal behind "$" or "0x"; blanks count as "_" and so never fit.
  std::string text = request;
  size_t at = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  int base = 10;
  if (text.compare(at, 1, "$") == 0) {
    base = 16, text.erase(at, 1);
  } else if (text.compare(at, 2, "0x") == 0 || text.compare(at, 2, "0X") == 0) {
    base = 16, text.erase(at, 2);
  }
  if (at >= text.size()) return false;
  char *end = nullptr;
  const long long value = std::strtoll(text.c_str(), &end, base);
  if (*end != '\0' || text.find_first_of(" \t") != std::string::npos) return false;
  mode = static_cast<int>(
      std::max<long long>(std::min<long long>(value, 2147483647LL), -2147483648LL));
  return true;
}

Listing RenderListing(optHandle_t h, const std::string &file, const std::string &request,
                      bool piecewise) {
  Listing listing;
  optClearMessages(h);
  std::fflush(stdout);
  coptShowHelp(h, request.c_str());  // mode 4 writes its list on standard output here
  const std::vector<Message> whole = MessagesFrom(h, 1);
  optClearMessages(h);
  if (!piecewise && !Overflowed(whole)) {
    for (const Message &message : whole)
      listing.lines.push_back(message.text);
    return listing;
  }
  int mode = 1;
  if (!ListingMode(request, mode)) mode = 1;
  if (mode <= 0) mode = 3;
  HelpPieces pieces(h, file, CaptureSortedNames(h));
  HelpLineWriter writer(listing.lines);
  if (mode & 1) pieces.Summary(writer, (mode & 8) != 0, listing.problems);
  if (mode & 2) pieces.Alphabetical(writer, listing.problems);
  return listing;
}

}  // namespace optkw_tool
