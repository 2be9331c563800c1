#include "losses.h"

#include <rytree_Utils.h>

#include <utility>
#include <vector>

#include "columns.h"
#include "failure.h"
#include "platform/paths.h"

std::string not_kept() {
  const RYXmlPassedOver passed = RYXmlWrapperBase::LastPassedOver();
  std::vector<std::string> parts;
  const auto add = [&](int count, std::string part) {
    if (count > 0) parts.push_back(std::move(part));
  };
  add(passed.comments, counted(passed.comments, "comment", "comments"));
  add(passed.instructions, counted(passed.instructions, "processing instruction", "processing instructions"));
  add(passed.doctypes, "the DOCTYPE");
  add(passed.entities, counted(passed.entities, "entity declaration", "entity declarations"));
  add(passed.mixed_nodes,
      "the place of text among the children of " + counted(passed.mixed_nodes, "node", "nodes"));
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i)
    text += (i == 0 ? "" : i + 1 < parts.size() ? ", " : " and ") + parts[i];
  if (parts.empty()) return text;
  const bool one = parts.size() == 1 && passed.comments + passed.instructions + passed.entities <= 1;
  return text + (one ? " is not kept" : " are not kept");
}

void refuse_loss(const std::string& read, const std::string& lost, const std::string& target, bool allowed) {
  if (!lost.empty() && !allowed && platform::IsSameFile(read, target))
    throw Failure(read + ": " + lost + "; --allow-loss writes over it all the same");
}
