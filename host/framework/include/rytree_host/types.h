// Small types of the system and records of the host.
#pragma once

#include "rytree_host/carray.h"
#include "rytree_host/system_types.h"

/// Options of a text node; there are none yet.
struct STNODETEXTOPTS {};

/// The vector of a node.
struct tagRYSOBJVECT {
  CArray<double, double> values;
};
