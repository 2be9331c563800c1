// What the tools and <rytree_Utils/extras.h> do with the text of a node.
#pragma once

#include <rytree_Utils.h>
#include <rytree_Utils/extras.h>

#include <string>

/// Gives the node this text.
void set_value(RYXmlWrapperBase& node, const std::string& text);
