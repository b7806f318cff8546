// What `optkw lint` found, as JSON: one record per finding.
#include <nlohmann/json.hpp>
#include <string>

#include "lint_findings.h"

namespace optkw_tool {

std::string LintJson(const std::string &file, const Findings &findings) {
  nlohmann::json records = nlohmann::json::array();
  for (const Finding &finding : findings) {
    records.push_back({{"file", file},
                       {"line", finding.line > 0 ? nlohmann::json(finding.line) : nullptr},
                       {"severity", SeverityName(finding.severity)},
                       {"code", finding.code},
                       {"message", finding.message},
                       {"option", finding.option.empty() ? nlohmann::json(nullptr)
                                                         : nlohmann::json(finding.option)}});
  }
  // Definition text is bytes: replace what isn't UTF-8 rather than fail.
  return records.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace optkw_tool
