// Rows and cells of report tables.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

/// The node ID of a row: the data set in the high 16 bits, the low ones of `idWord` below. Cut to 32 bits.
int report_table_row_id(int idWord, int data);

/// The child tagged with the prefix and the number, found or made as by rytree_tree_check_get_node; invalid
/// if it could not be made.
RYXmlWrapperBase report_get_numbered_node(RYXmlWrapperBase* parent, const char* prefix, int number, int id,
                                          const char* attribute, const char* attributeValue);

/// Writes a text (null: empty) to "SubHeader" and the number, or to "Label" if `subHeader` is negative.
void report_set_header_text(RYXmlWrapperBase* node, const char* text, int subHeader);
