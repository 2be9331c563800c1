// What the examples share: a tree made of XML text, and trees and values printed as text.
#pragma once

#include <rytree_host/node.h>

#include <cstdio>

/// A tree of its own, made of one XML element. The program ends if the text is not one.
RYXmlWrapperBase tree_from(const char* xml);

/// Prints a heading, "-- heading".
void heading(const char* text);

/// Prints a branch under a heading, one node a line.
void show(const char* text, const RYXmlWrapperBase& node);

/// The tag of a node, "(none)" for an invalid handle.
CString tag_of(const RYXmlWrapperBase& node);

/// The text of a node.
CString text_of(const RYXmlWrapperBase& node);
