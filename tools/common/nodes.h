// What the programs print of a node.
#pragma once

#include <rytree_Utils.h>

#include <optional>
#include <string>

/// The tag of a node.
std::string tag_of(const RYXmlWrapperBase& node);

/// The text of a node itself.
std::string value_of(RYXmlWrapperBase node);
/// Nothing if the node has no such attribute.
std::optional<std::string> attribute_of(const RYXmlWrapperBase& node, const char* name);
void set_value(RYXmlWrapperBase& node, const std::string& text);
