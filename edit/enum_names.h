// Workers of the enumerated names.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

/// 0 if prefix and suffix together are none of the names, case aside; else the first number from 1 on that,
/// put between them, makes a name that is free.
int rytree_first_free_enum_number(CStringArray* names, const char* prefix, const char* suffix);

/// Appends the numbers at the ends of the children's tags that have the prefix, case aside. Their count, or
/// -1 if one of those tags has no number.
int rytree_enum_tag_numbers(RYXmlWrapperBase* node, const char* prefix, CArray<unsigned, unsigned>* numbers);
