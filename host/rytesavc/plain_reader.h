// A fast reader for what nearly all XML files are made of: UTF-8, an XML declaration, elements, attributes, text, the
// five named and the numeric references, comments, CDATA, processing instructions.
//
// It takes only what Expat would take, and makes the same of it. What it does not know, what is wrong and what is too
// much it refuses without a word: ExpatReader then has the say.
#pragma once

#include "rytree_host/export.h"
#include "xml_builder.h"
#include "xml_input.h"

namespace rytesavc {

// False if the text is refused; what is in the builder then is a part of it. The text is looked at in pieces of about
// so many bytes.
RYTREE_API bool ReadPlain(XmlInput& input, XmlBuilder& builder, std::size_t piece);

}  // namespace rytesavc
