// One working call of every export, for tests that hold for all of them.
#pragma once

#include <string>
#include <vector>

#include "plain_exports.h"
#include "typed_exports.h"

namespace every_export {

inline const std::vector<ExportCall>& table() {
  static const std::vector<ExportCall> rows = [] {
    std::vector<ExportCall> all = plain_calls();
    for (const ExportCall& row : typed_calls()) all.push_back(row);
    return all;
  }();
  return rows;
}

}  // namespace every_export

/// Makes the call on a scene of its own. Gives its result and what the scene is afterwards.
inline std::string run(const ExportCall& row) {
  ExportScene scene(row.xml);
  if (row.prepare != nullptr) row.prepare(scene);
  const int result = row.call(scene);
  return std::to_string(result) + "\n" + scene.show();
}
