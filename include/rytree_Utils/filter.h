// Thinning a tree in place. Every node whose "DataID" is the one asked for is a candidate, which stays or is
// removed with its branch by a test on strings. A start node that is a candidate is the only one, and may be
// removed too, which leaves the caller's handle dead; below a candidate no other is looked for. Nodes of
// other DataIDs, or none, always stay. What was removed stays removed.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Keeps the candidates that pass two tests on the texts of nodes below them. A test collects the texts,
/// empty ones too, of all nodes below the candidate (not its own) with the DataID `includeId` or `excludeId`,
/// also below a node that is a candidate itself. Texts compare without regard to case; repeats play no part.
///
/// First the exclude test, by `excludeMode`:
/// - 0: every text of `includeId` must be in `includes`; an empty `includes` fails every candidate, even one
/// without texts. `excludes` and `excludeId` are not used.
/// - 1: none of `excludes` may be among the texts of `excludeId`.
/// - 2: not all of `excludes` may be among them; a candidate without texts passes.
/// - other: fails.
///
/// Then the include test, by `includeMode`:
/// - 0: all of `includes` must be among the texts of `includeId`.
/// - 1: at least one must.
/// - other: fails, whatever the lists.
///
/// A mode 1 or 2 of exclude is passed with an empty `excludes`, a mode 0 or 1 of include with an empty
/// `includes`. 1; 0 if `node` is null or invalid; -1 with the tree unchanged if a list is null or holds no
/// string array, which is tested first. The lists are searched linearly: time grows with the texts times the
/// entries.
RYTREE_API int rytree_filter(RYXmlWrapperBase* node, int dataId, int includeMode, int includeId,
                             HostArrayObject* includes, int excludeMode, int excludeId,
                             HostArrayObject* excludes);

/// Keeps the candidates whose attribute holds `text`, with `atStart` those whose attribute begins with it. An
/// empty text is held by every attribute; a candidate without the attribute goes. `caseSensitive` 0 compares
/// in upper case. 1; 0 with the tree unchanged if `node` is invalid or a pointer is null.
RYTREE_API int rytree_filter_by_attrib_find(RYXmlWrapperBase* node, int dataId, const char* attribute,
                                            const char* text, int caseSensitive, int atStart);

/// Keeps the candidates whose attribute the host's text match finds to fit `pattern`; `matchFlag` is handed
/// to it as it is. A candidate without the attribute goes. 1; 0 with the tree unchanged if `node` is invalid
/// or a pointer is null.
RYTREE_API int rytree_filter_by_attrib_match(RYXmlWrapperBase* node, int dataId, const char* attribute,
                                             const char* pattern, int matchFlag);
}
