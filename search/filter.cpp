// Thinning a tree by the texts that its nodes hold below them.
#include "search/filter.h"

#include <rytree_Utils/filter.h>

#include "frame/host_arrays.h"
#include "frame/node_text.h"
#include "search/candidates.h"
#include "search/text_sets.h"

namespace {

enum IncludeMode { kIncludeAll = 0, kIncludeAny = 1 };
enum ExcludeMode { kOnlyIncluded = 0, kExcludeAny = 1, kExcludeAll = 2 };

CStringArray texts_below(RYXmlWrapperBase* node, int id) {
  CStringArray texts;
  rytree_collect_texts_by_dataid(node, &texts, id);
  return texts;
}

bool passes_exclude(RYXmlWrapperBase* node, int mode, int exclude_id, const CStringArray* excludes,
                    int include_id, const CStringArray* includes) {
  if (mode == kOnlyIncluded) {
    const CStringArray texts = texts_below(node, include_id);
    return strings_all_in(&texts, includes) != 0;
  }
  if (mode != kExcludeAny && mode != kExcludeAll) return false;
  if (excludes->IsEmpty()) return true;
  const CStringArray texts = texts_below(node, exclude_id);
  return (mode == kExcludeAny ? strings_intersect(excludes, &texts) : strings_all_in(excludes, &texts)) == 0;
}

bool passes_include(RYXmlWrapperBase* node, int mode, int include_id, const CStringArray* includes) {
  if (mode != kIncludeAll && mode != kIncludeAny) return false;
  if (includes->IsEmpty()) return true;
  const CStringArray texts = texts_below(node, include_id);
  return (mode == kIncludeAll ? strings_all_in(includes, &texts) : strings_intersect(includes, &texts)) != 0;
}

}  // namespace

void rytree_collect_texts_by_dataid(RYXmlWrapperBase* node, CStringArray* texts, int dataId) {
  const RYPropertyName data_id("DataID");
  for (NodesBelow at(*node); at; ++at) {
    int id = 0;
    if (at->GetPropertyValue(data_id, id) == 0 || id != dataId) continue;
    const int place = texts->GetSize();
    texts->SetSize(place + 1);
    read_text(*at, (*texts)[place]);
  }
}

int rytree_filter_test_node(RYXmlWrapperBase* candidate, int includeMode, int includeId,
                            CStringArray* includes, int excludeMode, int excludeId, CStringArray* excludes) {
  return passes_exclude(candidate, excludeMode, excludeId, excludes, includeId, includes) &&
                 passes_include(candidate, includeMode, includeId, includes)
             ? 1
             : 0;
}

int rytree_filter_walk(RYXmlWrapperBase* node, int dataId, int includeMode, int includeId,
                       CStringArray* includes, int excludeMode, int excludeId, CStringArray* excludes) {
  const auto keeps = [=](RYXmlWrapperBase& candidate) {
    return rytree_filter_test_node(&candidate, includeMode, includeId, includes, excludeMode, excludeId,
                                   excludes) != 0;
  };
  return Candidates(dataId, keeps).below(*node);
}

int rytree_filter(RYXmlWrapperBase* node, int dataId, int includeMode, int includeId,
                  HostArrayObject* includes, int excludeMode, int excludeId, HostArrayObject* excludes) {
  CStringArray* const included = open_strings(includes);
  CStringArray* const excluded = open_strings(excludes);
  if (included == nullptr || excluded == nullptr) return -1;
  if (node == nullptr) return 0;
  if (int id = 0; node->GetPropertyValue("DataID", id) == 0 || id != dataId) {
    return rytree_filter_walk(node, dataId, includeMode, includeId, included, excludeMode, excludeId,
                              excluded);
  }
  if (rytree_filter_test_node(node, includeMode, includeId, included, excludeMode, excludeId, excluded) ==
      0) {
    node->RemoveNode();
  }
  return 1;
}
