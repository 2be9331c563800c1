// Thinning a tree in place. Every node whose "DataID" is the one asked for is a candidate: a test on strings
// decides whether it stays or is removed with its branch. No candidates are looked for below another one. So
// a start node that is a candidate is the only one; if it is removed, the caller's handle is dead. Nodes with
// another DataID, or none, are removed only with a candidate above them. What was removed stays removed.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Keeps the candidates that pass two tests on the texts of the nodes below them. "The texts of `includeId`"
/// are those of all nodes below the candidate with that DataID, empty texts and nodes below another candidate
/// included, the candidate's own text not; likewise for `excludeId`. Texts are compared without regard to
/// case, and repeats make no difference.
///
/// To exclude nothing, give `excludeMode` 1 with an empty `excludes`; 0 is not "off": it removes
/// candidates with texts that `includes` lacks. To
/// include everything, give `includeMode` 0 or 1 with an empty `includes`, but then not `excludeMode` 0. An
/// empty list is an array object without entries: a null one is a failure.
///
/// First the exclude test, by `excludeMode`:
/// - 0: every text of `includeId` must be in `includes`. With an empty `includes` every candidate fails, even
///   one without texts. `excludes` and `excludeId` are not used.
/// - 1: none of `excludes` may be among the texts of `excludeId`.
/// - 2: at least one of `excludes` must not be among the texts of `excludeId`.
/// - other: every candidate fails.
///
/// Then the include test, by `includeMode`:
/// - 0: all of `includes` must be among the texts of `includeId`.
/// - 1: at least one of them must be.
/// - other: every candidate fails.
///
/// With an empty `excludes` every candidate passes the exclude modes 1 and 2, with an empty `includes` the
/// include modes 0 and 1.
///
/// 1; 0 if `node` is null or invalid; -1 with the tree unchanged if a list is null or holds no string array,
/// which is tested first. Linear in the nodes and the entries of the lists together.
RYTREE_API int rytree_filter(RYXmlWrapperBase* node, int dataId, int includeMode, int includeId,
                             HostArrayObject* includes, int excludeMode, int excludeId,
                             HostArrayObject* excludes);

/// Keeps the candidates whose attribute contains `text`, with `atStart` those whose attribute begins with it.
/// Every attribute contains the empty text; a candidate without the attribute is removed. With
/// `caseSensitive` 0 both are compared in upper case. 1; 0 with the tree unchanged if `node` is invalid or a
/// pointer is null.
RYTREE_API int rytree_filter_by_attrib_find(RYXmlWrapperBase* node, int dataId, const char* attribute,
                                            const char* text, int caseSensitive, int atStart);

/// Keeps the candidates whose attribute fits `pattern` by the host's text match, which gets `matchFlag` as it
/// is: in the bundled one (kelp_text_match) nonzero means that case counts. A candidate without the
/// attribute is removed. 1; 0 with the tree unchanged if `node` is invalid or a pointer is null.
RYTREE_API int rytree_filter_by_attrib_match(RYXmlWrapperBase* node, int dataId, const char* attribute,
                                             const char* pattern, int matchFlag);
}
