#include "platform/variants.h"

namespace platform {

const VariantValue& ValueOf(const _variant_t& variant, VariantValue& /*room*/) { return variant.value; }

}  // namespace platform
