#include "page.h"

#include <algorithm>
#include <utility>

#include "columns.h"
#include "nodes.h"
#include "page_parts.h"
#include "report.h"
#include "streams.h"

namespace {

// What a browser shows without effort. Above that the page is shortened, and says so.
constexpr int kMostNodes = 20000;
constexpr int kMostInList = 2000;
constexpr std::size_t kMostBytesOfTree = 4U << 20U;
constexpr std::size_t kMostBytesOfText = 4000;

/// A text in HTML. Control characters that a page cannot hold are written as escapes.
std::string escaped(const std::string& text) {
  std::string out;
  for (const char byte : text) {
    const auto code = static_cast<unsigned char>(byte);
    switch (byte) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      case '\n':
      case '\t':
        out += byte;
        break;
      default:
        if (code < 0x20 || code == 0x7F) {
          out += one_line(std::string(1, byte));
        } else {
          out += byte;
        }
    }
  }
  return out;
}

std::string element(const char* tag, const char* css, const std::string& text) {
  std::size_t end = std::min(text.size(), kMostBytesOfText);
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) --end;
  return std::string("<") + tag + (*css == '\0' ? "" : std::string(" class=") + css) + '>' +
         escaped(text.substr(0, end)) +
         (end < text.size() ? "… (" + std::to_string(text.size()) + " bytes)" : "") + "</" + tag + '>';
}

/// Whether a finding opens the branches above it.
bool is_notable(const Finding& finding) {
  return finding.fate == Fate::kApplied || finding.fate == Fate::kKept || finding.fate == Fate::kConflict ||
         finding.fate == Fate::kNotTaken;
}

/// What a finding adds to the line of its node.
std::string remark(const Finding& finding) {
  const std::size_t at = finding.path.rfind('@');
  const std::string part =
      at == std::string::npos ? "" : ' ' + element("span", "note", finding.path.substr(at));
  const std::string values = ' ' + element("del", "", shown(finding.old_value)) + " → " +
                             element("ins", "", shown(finding.new_value));
  switch (finding.fate) {
    case Fate::kApplied:
      return part + values;
    case Fate::kKept:
      return part + ' ' + element("span", "s", "kept") + ' ' +
             element("span", "note", "not " + shown(finding.new_value));
    case Fate::kConflict:
      return part + ' ' + element("span", "s", "conflict") + ' ' +
             element(
                 "span", "note",
                 finding.note + "; mine: " + shown(finding.new_value) + ", new: " + shown(finding.old_value));
    case Fate::kNotTaken:
      return ' ' + element("span", "s", "not taken") + ' ' +
             element("span", "note", "of the source: " + shown(finding.new_value) + ", " + finding.note);
    case Fate::kDefault:
      return ' ' + element("span", "note", "the source has the old default");
    case Fate::kNoValue:
      return ' ' + element("span", "note", "no value in the source");
    default:
      return "";
  }
}

/// The tree of the result.
class Tree {
 public:
  Tree(const Outcome& outcome, std::string& out) : out_(out) {
    const std::vector<Finding>& all = outcome.findings.list;
    end_ = std::find_if(all.begin(), all.end(), [](const Finding& finding) { return finding.row < 0; });
    next_ = telling_ = all.begin();
    is_short_ = outcome.result.GetTreeSize() > kMostNodes;
    row_ends_.reserve(static_cast<std::size_t>(outcome.result.GetTreeSize()));
    measure(outcome.result);
  }

  void write(const RYXmlWrapperBase& node) {
    const int row = row_++;
    const auto first = next_;
    while (next_ != end_ && next_->row == row) ++next_;
    const std::string states = states_of(first, next_);
    const bool is_branch = node.GetNodeCount() > 0;
    const auto last = std::find_if(next_, end_, [&](const Finding& finding) {
      return finding.row >= row_ends_[static_cast<std::size_t>(row)] || is_notable(finding);
    });
    const bool opens = last != end_ && last->row < row_ends_[static_cast<std::size_t>(row)];
    out_ += is_branch ? "<details class=n" : "<div class=\"n line\"";
    if (!states.empty()) out_ += " data-s=\"" + states + '"';
    out_ += is_branch ? opens || row == 0 ? " open><summary>" : "><summary>" : ">";
    write_line(node, first);
    out_ += is_branch ? "</summary>\n" : "</div>\n";
    if (!is_branch) return;
    write_children(node);
    out_ += "</details>\n";
  }

  /// What is not shown of the tree; empty if all is.
  std::string shortening() const {
    if (!is_short_ && findings_left_out_ == 0) return "";
    std::string text =
        "Of a tree of this size, the page shows only the branches in which something changed or did not fit";
    if (findings_left_out_ > 0)
      text += ", and of these " + std::to_string(findings_left_out_) + " findings are left out";
    return text + ". --report with a FILE that does not end in .html tells all in lines.";
  }

 private:
  using Place = std::vector<Finding>::const_iterator;

  static bool tells(const Finding& finding) {
    return finding.fate != Fate::kUnchanged && finding.fate != Fate::kDefault;
  }

  void write_children(const RYXmlWrapperBase& node) {
    int left_out = 0;
    const auto note = [&] {
      if (left_out > 0)
        out_ +=
            element("div", "\"line note\"", "… " + counted(left_out, "node", "nodes") + " not shown") + '\n';
      left_out = 0;
    };
    RYXmlWrapperBase child;
    for (node.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) {
      if (is_left_out()) {
        left_out += leave_out();
      } else {
        note();
        write(child);
      }
    }
    note();
  }

  /// Whether the branch that begins at the present row is not shown.
  bool is_left_out() {
    if (out_.size() > kMostBytesOfTree) return true;
    while (telling_ != end_ && (telling_->row < row_ || !tells(*telling_))) ++telling_;
    return is_short_ && (telling_ == end_ || telling_->row >= row_ends_[static_cast<std::size_t>(row_)]);
  }

  /// Passes over that branch, and gives the number of its nodes.
  int leave_out() {
    const int first = std::exchange(row_, row_ends_[static_cast<std::size_t>(row_)]);
    for (; next_ != end_ && next_->row < row_; ++next_) findings_left_out_ += tells(*next_) ? 1 : 0;
    return row_ - first;
  }

  /// Notes for each row where its branch ends.
  void measure(const RYXmlWrapperBase& node) {
    const std::size_t row = row_ends_.size();
    row_ends_.push_back(0);
    RYXmlWrapperBase child;
    for (node.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) measure(child);
    row_ends_[row] = static_cast<int>(row_ends_.size());
  }

  static std::string states_of(Place first, Place last) {
    std::string states;
    for (; first != last; ++first) {
      const std::string name = name_of(first->fate);
      if (states.find(name) == std::string::npos) states += (states.empty() ? "" : " ") + name;
    }
    return states;
  }

  void write_line(const RYXmlWrapperBase& node, Place first) {
    out_ += element("span", "tag", rytree::tag_of(node));
    if (const auto label = rytree::attribute_of(node, "Label"); label && !label->empty())
      out_ += ' ' + element("span", "note", *label);
    if (first != next_) out_ += ' ' + element("span", "id", first->id);
    const bool changed = std::any_of(first, next_, [](const Finding& finding) {
      return finding.fate == Fate::kApplied && finding.path.find('@') == std::string::npos;
    });
    const std::string text = rytree::text_of(node);
    if (!changed && !text.empty()) out_ += ' ' + element("span", "value", text);
    for (; first != next_; ++first) out_ += remark(*first);
  }

  std::string& out_;
  Place next_;
  Place telling_;  // the next that keeps its branch from being left out
  Place end_;
  int row_ = 0;
  std::vector<int> row_ends_;
  bool is_short_ = false;
  int findings_left_out_ = 0;
};

/// What has no place in the tree.
void add_list(std::string& out, const Outcome& outcome, Fate fate, const char* heading) {
  constexpr int kShort = 8;  // a longer list is folded, so that the tree is not far away
  const std::vector<Finding>& all = outcome.findings.list;
  const auto is_here = [&](const Finding& finding) { return finding.fate == fate && finding.row < 0; };
  const auto count = std::count_if(all.begin(), all.end(), is_here);
  if (count == 0) return;
  out += std::string("<details class=list") + (count <= kShort ? " open" : "") + "><summary>" +
         element("h2", "", std::string(heading) + " (" + std::to_string(count) + ')') + "</summary>\n";
  int room = kMostInList;
  for (const Finding& finding : all) {
    if (!is_here(finding) || --room < 0) continue;
    out += std::string("<div class=\"n line\" data-s=") + name_of(fate) + '>' +
           element("span", "path", finding.path) + ' ' +
           (finding.id.empty() ? "" : element("span", "id", finding.id) + ' ');
    out += element("span", "value", shown(finding.new_value));
    if (!finding.note.empty()) out += ' ' + element("span", "note", finding.note);
    out += "</div>\n";
  }
  if (room < 0) out += element("div", "\"line note\"", "… and " + std::to_string(-room) + " more") + '\n';
  out += "</details>\n";
}

void add_facts(std::string& out, const Arguments& arguments, const Outcome& outcome) {
  const auto fact = [&](const char* name, const std::string& file, const std::string& text) {
    out += std::string("<p class=facts>") + name + " <b>" + escaped(file) + "</b>" + escaped(text) + "</p>\n";
  };
  fact("Source", shown_input(arguments.source),
       ": " + counted(outcome.source_nodes, "node", "nodes") + ", " +
           counted(outcome.harvested, "value", "values"));
  fact("Target", shown_input(arguments.target),
       ": " + counted(outcome.findings.target_nodes, "node", "nodes") + ", " +
           std::to_string(outcome.findings.matched_nodes) + " of them with a value in the source");
  if (!arguments.base.empty()) fact("Old defaults", shown_input(arguments.base), "");
  fact("Result", written(arguments, outcome, arguments.result), "");
  std::vector<std::string> warnings = outcome.losses;
  if (!outcome.misfit.empty()) warnings.push_back(outcome.misfit);
  for (const std::string& warning : warnings) out += element("p", "warning", warning) + '\n';
}

void add_bar(std::string& out, const Findings& findings) {
  out += "<div class=bar><input type=search placeholder=\"Search tags, IDs, values\" aria-label=Search>\n";
  for (std::size_t i = 0; i < kFates; ++i) {
    const char* const name = name_of(static_cast<Fate>(i));
    if (findings.counts[i] == 0) continue;
    out += std::string("<button aria-pressed=false data-s=") + name + "><b>" +
           std::to_string(findings.counts[i]) + "</b> " + name + "</button>\n";
  }
  out += "<button id=open>unfold</button> <button id=close>fold</button></div>\n";
}

}  // namespace

std::string page_text(const Arguments& arguments, const Outcome& outcome) {
  const std::string title =
      escaped(shown_input(arguments.source)) + " → " + escaped(shown_input(arguments.target));
  std::string out =
      "<!DOCTYPE html>\n<html lang=en><head><meta charset=utf-8>\n"
      "<meta name=viewport content=\"width=device-width, initial-scale=1\">\n<title>" +
      title + "</title>\n<style>" + kPageStyle + "</style></head>\n<body>\n<h1>" + title + "</h1>\n";
  std::string rows;
  Tree tree(outcome, rows);
  tree.write(outcome.result);
  add_facts(out, arguments, outcome);
  if (const std::string shortening = tree.shortening(); !shortening.empty())
    out += element("p", "facts", shortening) + '\n';
  add_bar(out, outcome.findings);
  out += "<p id=none hidden>Nothing is found.</p>\n";
  add_list(out, outcome, Fate::kNoNode, "No node has this ID");
  add_list(out, outcome, Fate::kDuplicate, "The ID came before in the source");
  add_list(out, outcome, Fate::kDefault, "Still the old default, and no node has this ID");
  add_list(out, outcome, Fate::kNotTaken, "A text that is not taken");
  add_list(out, outcome, Fate::kNoId, "A value without an ID");
  add_list(out, outcome, Fate::kBadId, "The ID is of no use");
  out += "<section class=tree><h2>The result</h2>\n";
  return out + rows + "</section>\n<script>" + kPageScript + "</script>\n</body></html>\n";
}
