// What a _variant_t holds.
#pragma once

#include <variant>

#include "rytree_host/cstring.h"
#include "rytree_host/system_types.h"

namespace platform {

using VariantValue = std::variant<std::monostate, int, double, CString>;

// The value of a variant. A system that keeps it in another form puts it into `room`, and gives that.
const VariantValue& ValueOf(const _variant_t& variant, VariantValue& room);

}  // namespace platform
