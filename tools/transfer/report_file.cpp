#include "report_file.h"

namespace {

void append(std::string& out, const std::string& text) {
  for (const char byte : text) {
    switch (byte) {
      case '\\':
        out += "\\\\";
        break;
      case '\t':
        out += "\\t";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      default:
        out += byte;
    }
  }
}

}  // namespace

std::string report_text(const Outcome& outcome) {
  std::string out = "status\tID\tnode\told value\tnew value\tnote\n";
  for (const Finding& finding : outcome.findings.list) {
    out += name_of(finding.fate);
    for (const std::string& text : {finding.id, finding.path, finding.old_value.value_or(""),
                                    finding.new_value.value_or(""), finding.note}) {
      out += '\t';
      append(out, text);
    }
    out += '\n';
  }
  return out;
}
