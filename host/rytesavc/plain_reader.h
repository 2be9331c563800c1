// A fast reader for what nearly all XML files are made of: UTF-8, an XML declaration, elements, attributes,
// text, the five named and the numeric references, comments, CDATA, processing instructions.
//
// It accepts nothing that Expat would not, and makes the same of it. Whatever it does not know, whatever is
// wrong and whatever is too much it refuses without giving a reason: that is left to Expat.
#pragma once

#include "rytree_host/export.h"
#include "xml_builder.h"
#include "xml_input.h"

namespace rytesavc {

// Reads the text in pieces of about that size. False if it is refused; the builder then holds a part of it.
RYTESAVC_API bool ReadPlain(XmlInput& input, XmlBuilder& builder, std::size_t piece);

}  // namespace rytesavc
