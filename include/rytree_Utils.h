// Tree utilities: everything that a caller includes.
//
// There are two layers. Plain names (rytree_…, report_…, ry_is_same, ryget_changed) take node
// pointers, C strings and host array objects; typed names (vctree_…, VCTree…, tmxfu_…, XVarNode_…) take
// framework arrays and references. Rules that hold for every function, unless its own comment says otherwise:
//
// - A walk starts at the children of the node it is given, which is not visited itself, and runs in
//   pre-order.
// - A null ID attribute name means "DataID". Flags of type bool and int are true when not zero.
// - A null pointer, an invalid or dead handle or an array object of another kind gives the failure result
//   and never crashes. An invalid handle on which a function only walks is a node without anything below it:
//   the result is then 0, as for an empty branch.
// - Two node arguments come in one order in some functions and in the other in others; the comment of each
//   begins with it ("Order: `out`, `parent`.").
// - Arrays that are filled are appended to. A read of an attribute that is missing leaves the variable alone.
// - What was changed before a failure stays changed. Failures are results. The only exception thrown here is
//   std::bad_alloc, when memory runs out: nothing has leaked then, every tree is sound, and what was changed
//   before stays changed. No single operation of a node is left half done. Files and XML text that cannot be
//   read or written for lack of memory give the failure result.
// - An out node may be the start node. Trees and arrays stay the caller's.
// - A tree and an array belong to one thread at a time; different trees on different threads need no lock.
#pragma once

#include <rytree_Utils/version.h>  // first: it asks for C++20

#include <rytree_Utils/action_id.h>
#include <rytree_Utils/arrange.h>
#include <rytree_Utils/auto_support.h>
#include <rytree_Utils/bulk.h>
#include <rytree_Utils/changes.h>
#include <rytree_Utils/code_page.h>
#include <rytree_Utils/composite_range.h>
#include <rytree_Utils/date_node.h>
#include <rytree_Utils/edit.h>
#include <rytree_Utils/enumerate.h>
#include <rytree_Utils/escaped_string.h>
#include <rytree_Utils/filter.h>
#include <rytree_Utils/fit_parameters.h>
#include <rytree_Utils/hidden_values.h>
#include <rytree_Utils/homologous.h>
#include <rytree_Utils/input_data.h>
#include <rytree_Utils/input_table.h>
#include <rytree_Utils/key_value.h>
#include <rytree_Utils/localization.h>
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/paths.h>
#include <rytree_Utils/plot_identity.h>
#include <rytree_Utils/range_iterators.h>
#include <rytree_Utils/search.h>
#include <rytree_Utils/stats.h>
#include <rytree_Utils/theme_lookup.h>
#include <rytree_Utils/themes.h>
#include <rytree_Utils/transfer.h>
#include <rytree_Utils/values.h>
#include <rytree_Utils/variable_node.h>
#include <rytree_Utils/weighting.h>
#include <rytree_host/Kelp60.h>
#include <rytree_host/framework.h>
#include <rytree_host/node.h>
#include <rytree_host/ryUtils.h>
