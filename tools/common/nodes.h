// What the tools and <rytree_Utils/extras.h> do with the text of a node.
#pragma once

#include <rytree_Utils.h>
#include <rytree_Utils/extras.h>

#include <string>

/// The tags from the root down to the node, joined by full stops.
std::string path_of(RYXmlWrapperBase node);

/// The name that the node ID has in a file.
inline constexpr const char* kNodeId = "_NodeID";

/// Throws a Failure for a name that files reserve, which no attribute of a tree has.
void refuse_reserved(const std::string& attribute);

/// Gives the node this text.
void set_value(RYXmlWrapperBase& node, const std::string& text);
