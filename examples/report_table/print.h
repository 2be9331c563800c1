// A report as aligned text.
#pragma once

#include <rytree_host/node.h>

#include <iosfwd>

/// All nodes except those of the table, one a line.
void print_tree(std::ostream& out, RYXmlWrapperBase& report);

/// The table with its columns under their labels.
void print_table(std::ostream& out, RYXmlWrapperBase& report);
