// All of the framework's types and platform functions.
#pragma once

#include "rytree_host/carray.h"
#include "rytree_host/cstring.h"
#include "rytree_host/host_array.h"
#include "rytree_host/modules.h"
#include "rytree_host/multibyte.h"
#include "rytree_host/types.h"
