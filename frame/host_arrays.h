// Opening the arrays inside host objects.
#pragma once

#include <rytree_host/framework.h>

/// The framework array inside a host object; null for a null object and for one that holds no such array. It
/// is read or filled in place, and the object keeps owning it.
CStringArray* open_strings(HostArrayObject* object);
CArray<int, int>* open_ints(HostArrayObject* object);
CArray<double, double>* open_doubles(HostArrayObject* object);
CArray<bool, bool>* open_bools(HostArrayObject* object);
