#include "agreement.h"

#include <map>
#include <set>
#include <utility>

namespace {

std::set<std::string> asked;
std::map<std::pair<std::string, int>, std::uint64_t> results;
bool disagreement = false;

}  // namespace

bool Agreement::wants(std::string_view library, std::string_view job, int nodes) {
  return asked.insert(std::string(library) + '/' + std::string(job) + '/' + std::to_string(nodes)).second;
}

void Agreement::compare(benchmark::State& state, std::string_view job, int nodes, std::uint64_t result) {
  const auto [first, added] = results.try_emplace({std::string(job), nodes}, result);
  if (added || first->second == result) return;
  disagreement = true;
  state.SkipWithError("comes to another result than the first library");
}

bool Agreement::broken() { return disagreement; }
