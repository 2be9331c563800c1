// The growing array of strings of the framework.
#pragma once

#include "rytree_host/carray.h"
#include "rytree_host/cstring.h"

class CStringArray : public CArray<CString, const CString&> {};
