// The third side of a transfer: the defaults of the version that SOURCE was made with.
#pragma once

#include <rytree_Utils.h>

#include "findings.h"

/// Takes out of the harvested `pairs` what the user never changed, so that better defaults of TARGET come through,
/// and with `prefer_new` also what user and TARGET changed both, and tells what it found and what is left. The
/// first entry of an ID in `pairs` and in `base` stands for all of them; TARGET has changed it if one of its nodes has.
Settled settle(const RYXmlWrapperBase& base, const RYXmlWrapperBase& target, const Ids& ids, bool prefer_new,
               const Pairs& pairs);
