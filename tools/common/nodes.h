// What the tools and <rytree_Utils/extras.h> do with the text of a node.
#pragma once

#include <rytree_Utils.h>
#include <rytree_Utils/extras.h>

#include <string>

/// The tags from the root down to the node, joined by full stops.
std::string path_of(RYXmlWrapperBase node);

/// Gives the node this text.
void set_value(RYXmlWrapperBase& node, const std::string& text);
