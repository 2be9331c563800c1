// The reader for all XML text, which also decides why and where a text is refused.
#pragma once

#include <string>

#include "rytree_host/export.h"
#include "xml_builder.h"
#include "xml_input.h"

namespace rytesavc {

// False on a failure, which is noted. `encoding`: the text's, null if the text itself says it. `unknown` (may
// be null) gets what the text says if Expat does not know that encoding, else it becomes empty.
RYTESAVC_API bool ReadWithExpat(XmlInput& input, XmlBuilder& builder, const char* encoding,
                                std::string* unknown = nullptr);

}  // namespace rytesavc
