#include "safe_writer.h"

#include <unistd.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "client.h"
#include "diagnostics.h"

namespace optkw_tool {
namespace {

// Each value the writer writes, one per value of a two-valued option and one
// per entry of a string list.
std::vector<std::string> WrittenValues(optHandle_t h, int nr) {
  int defined, recent, ref, data_type, type, subtype;
  optGetInfoNr(h, nr, &defined, &recent, &ref, &data_type, &type, &subtype);
  char text[OPTKW_STRBUF_SIZE] = "";
  std::vector<std::string> values;
  if (type == optTypeStrList) {
    char key[OPTKW_STRBUF_SIZE], help[OPTKW_STRBUF_SIZE];
    coptGetHelpNr(h, nr, key, help);
    for (int k = 1; k <= coptListCountStr(h, key); ++k) {
      coptReadFromListStr(h, key, k, text);
      values.push_back(text);
    }
  } else if (type <= optTypeEnumInt && subtype != optsubNoValue) {
    coptGetStrNr(h, nr, text);
    values.push_back(text);
    if (subtype == optsub2Values) {
      coptGetStr2Nr(h, nr, text);
      values.push_back(text);
    }
  }
  return values;
}

int SignificantDigits(const std::string &text) {
  int digits = 0;
  bool leading = true;
  for (char c : text) {
    if (c == 'e' || c == 'E') break;
    if (!std::isdigit(static_cast<unsigned char>(c))) continue;
    if (c != '0') leading = false;
    if (!leading) ++digits;
  }
  return digits;
}

// The definition's string quote, put around every value, is text to the
// reader: "7" comes back as "'7'".
bool WrappedInQuote(const std::string &written, const std::string &read) {
  return read.size() == written.size() + 2 && read.front() == read.back() &&
         read.compare(1, written.size(), written) == 0;
}

// The likely cause of `written` coming back as `read`; `complaint` is what
// reading it back said about the option, if anything.
std::string Cause(const std::string &written, const std::string &read, int type,
                  const std::string &complaint) {
  if (!read.empty() && written.rfind(read, 0) == 0) {
    size_t at = read.size();
    while (at < written.size() && written[at] == ' ')
      ++at;
    // Comment characters are marks, never letters or digits.
    if (at < written.size() && std::ispunct(static_cast<unsigned char>(written[at])))
      return std::string("it holds the comment character \"") + written[at] + "\"";
  }
  if (WrappedInQuote(written, read))
    return std::string("the string quote \"") + read.front() + "\" is written around it";
  if (written.find('"') != std::string::npos) return "it holds a double quote";
  if (!written.empty() && (std::isspace(static_cast<unsigned char>(written.front())) ||
                           std::isspace(static_cast<unsigned char>(written.back()))))
    return "it begins or ends with a blank";
  if (type == optTypeDouble && (written == read || SignificantDigits(written) > 15))
    return "the number has more significant digits than the 15 written";
  if (!complaint.empty()) return "reading it back says: " + complaint;
  return "it reads back as \"" + read + "\"";
}

// A double can lose digits in its text and still render the same.
bool DoubleDiffers(optHandle_t h, optHandle_t back, int nr, size_t which, int type) {
  if (type != optTypeDouble) return false;
  double a = 0, b = 0;
  if (which == 0) {
    optGetDblNr(h, nr, &a), optGetDblNr(back, nr, &b);
  } else {
    optGetDbl2Nr(h, nr, &a), optGetDbl2Nr(back, nr, &b);
  }
  return a != b;
}

std::string ReadAll(const std::string &file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

std::string Lower(std::string text) {
  for (char &c : text)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// The first thing that reading the file back said about each option, by the
// name as written in lower case.
std::map<std::string, std::string> Complaints(optHandle_t back) {
  std::map<std::string, std::string> complaints;
  for (const Diagnostic &d : Locate(MessagesFrom(back, 1), "", true)) {
    if (d.option.empty() || d.follow_up) continue;
    complaints.emplace(Lower(d.option), BareText(d.text, d.type));
  }
  return complaints;
}

// A warning for each value of `h` that `back` doesn't hold as it was.
std::vector<std::string> CompareReadBack(optHandle_t h, optHandle_t back) {
  std::vector<std::string> warnings;
  const std::map<std::string, std::string> complaints = Complaints(back);
  for (int nr = 1; nr <= optCount(h); ++nr) {
    int defined, recent, ref, data_type, type, subtype;
    optGetInfoNr(h, nr, &defined, &recent, &ref, &data_type, &type, &subtype);
    if (defined == 0) continue;
    const std::vector<std::string> original = WrittenValues(h, nr);
    const std::vector<std::string> read =
        nr <= optCount(back) ? WrittenValues(back, nr) : std::vector<std::string>();
    char name[OPTKW_STRBUF_SIZE];
    coptGetNameNr(h, nr, name);
    const auto complaint = complaints.find(Lower(name));
    for (size_t k = 0; k < original.size(); ++k) {
      const std::string again = k < read.size() ? read[k] : std::string();
      if (again == original[k] && !DoubleDiffers(h, back, nr, k, type)) continue;
      warnings.push_back(std::string("warning: option \"") + name + "\": value \"" + original[k] +
                         "\" will not read back as written (" +
                         Cause(original[k], again, type,
                               complaint == complaints.end() ? std::string() : complaint->second) +
                         ")");
    }
  }
  return warnings;
}

}  // namespace

WriteResult WriteAndVerify(optHandle_t h, const std::string &file,
                           const std::function<void(optHandle_t)> &prepare) {
  WriteResult result;
  // Standard output can't be read back, so the text goes through a file.
  std::string written = file;
  if (file.empty()) {
    char name[] = "/tmp/optkw-write-XXXXXX";
    const int fd = mkstemp(name);
    if (fd < 0) return {coptWriteParameterFile(h, "") == 0, {}};
    close(fd);
    written = name;
  }
  result.ok = coptWriteParameterFile(h, written.c_str()) == 0;
  if (file.empty()) {
    std::fputs(ReadAll(written).c_str(), stdout);
    std::fflush(stdout);
  }
  if (result.ok) {
    Handle back;
    prepare(back.get());
    coptReadParameterFile(back.get(), written.c_str());
    result.warnings = CompareReadBack(h, back.get());
  }
  if (file.empty()) std::remove(written.c_str());
  return result;
}

}  // namespace optkw_tool
