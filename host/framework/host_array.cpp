#include "rytree_host/host_array.h"

HostArrayObject::~HostArrayObject() = default;
