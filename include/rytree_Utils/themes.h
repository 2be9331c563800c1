// Themes: lists of ID and value pairs, kept in a node or a file, and the theme that a tree says it carries.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// The pairs come in two arrays of equal size: element i of one belongs to element i of the other. IDs and
// values are stored and handed back as they are; nothing is harvested, merged or sorted. In a tree the pairs
// make one flat branch:
//
//     <Settings Comment="…">Settings<node51 Label="…">value</node51><node-3>value</node-3></Settings>
//
// The node "Settings" has its tag for a text and the node ID 0. Each pair is a child, in array order, tagged
// "node" and the ID in decimal, with the value as its text. "Comment" is there if the writer gave one, an
// empty one too; "Label" is there for the pairs that had a label. A reader takes any node for such a branch.

extern "C" {

/// vctree_get_theme into host arrays. The result is always true and tells nothing: nothing is read if `theme`
/// or an array object is null, or if the array objects are swapped or not of their kind. Look at the sizes of
/// the arrays.
RYTREE_API bool rytree_get_theme(RYXmlWrapperBase* theme, HostArrayObject* ids, HostArrayObject* values,
                                 CString* comment);

/// vctree_set_theme from host arrays. True means written only if `values` is a string array: with a null
/// one, or with the two arrays swapped, the result is true as well and nothing is written. Otherwise the
/// result is that of vctree_set_theme.
RYTREE_API bool rytree_set_theme(RYXmlWrapperBase* node, HostArrayObject* ids, HostArrayObject* values,
                                 const char* comment);

/// vctree_read_values_with_ids into host arrays. True means read only if `values` is a string array.
/// - False, arrays untouched, if `file` is null.
/// - True, nothing read and the file not opened, if `values` is null or holds no string array, as with the
///   two arrays swapped.
/// - False, `values` emptied, if `ids` is null or holds no int array.
[[nodiscard]] RYTREE_API bool rytree_tree_read_values_with_ids(const char* file, HostArrayObject* ids,
                                                               HostArrayObject* values, CString* comment);

/// The file form of vctree_save_values_with_ids from host arrays. To save without labels, give an empty
/// string array for `labels`: with null the result is true and no file is written. True means saved only if
/// both `values` and `labels` are string arrays.
/// - False if `file` is null or empty, or `ids` or `values` is null.
/// - True, nothing saved, if `labels` is null, or if `values` or `labels` holds no string array, as with
///   `ids` and `values` swapped.
/// - False if `ids` holds no int array.
[[nodiscard]] RYTREE_API bool rytree_tree_save_values_with_ids(const char* file, HostArrayObject* ids,
                                                               HostArrayObject* values, const char* comment,
                                                               HostArrayObject* labels);

/// The node form of vctree_save_values_with_ids from host arrays: false if `node` is null or invalid, all
/// else as rytree_tree_save_values_with_ids.
[[nodiscard]] RYTREE_API bool rytree_save_values_with_ids(RYXmlWrapperBase* node, HostArrayObject* ids,
                                                          HostArrayObject* values, const char* comment,
                                                          HostArrayObject* labels);

/// The theme kind of a tree: the int attribute "ThemeType" of `node`, 4 if it is missing or `node` is
/// invalid, 0 if `node` is null.
RYTREE_API int rytree_tree_get_theme_type(RYXmlWrapperBase* node);

/// Puts the attribute "ThemeFile" of `node` into `file`. True if it was there; else false with `file`
/// emptied, or untouched if `node` is null. False if `file` is null.
RYTREE_API bool rytree_tree_get_theme_file_name(RYXmlWrapperBase* node, CString* file);

/// Writes the attribute "ThemeFile" of `node`, an empty one too; a null `file` removes it. False if `node` is
/// null, else true, also if there was nothing to remove, or if `node` is invalid and nothing was written.
RYTREE_API bool rytree_tree_set_theme_file_name(RYXmlWrapperBase* node, const char* file);

}  // extern "C"

/// Reads a theme: appends the ID and the text of each direct child of `theme` to the arrays, which are not
/// emptied first. The ID is the number at the start of the tag without a leading "node"; a tag without a
/// number gives 0, a number out of range the nearest int. No child is skipped, and of a branch only its own
/// text counts. `comment` (may be null) gets the attribute "Comment" if it is there and stays as it is
/// otherwise. An invalid `theme` gives no pairs. Nothing happens if `theme`, `ids` or `values` is null.
RYTREE_API void vctree_get_theme(RYXmlWrapperBase* theme, CArray<int, int>* ids, CStringArray* values,
                                 CString* comment);

/// Writes a theme into `node` in place of all that the node held, tag and attributes too. An invalid handle
/// is put on a fresh tree. A null `comment` writes none. True, or false:
/// - the arrays are empty, differ in size or are null, or `node` is null: nothing changes;
/// - a child could not be made (the tree would be too deep, or a value is longer than the tree can hold): the
///   former content is gone, and the children made so far stay, without "Comment".
RYTREE_API bool vctree_set_theme(RYXmlWrapperBase* node, CArray<int, int>* ids, CStringArray* values,
                                 const char* comment);

/// Reads the pairs of a file. The arrays are emptied first, whatever follows. True, with `comment` (may be
/// null) as in vctree_get_theme; false with empty arrays and `comment` untouched if the file cannot be loaded
/// or a pointer is null. A file of another kind gives the pairs of its root's direct children.
[[nodiscard]] RYTREE_API bool vctree_read_values_with_ids(const char* file, CArray<int, int>* ids,
                                                          CStringArray* values, CString* comment);

/// Saves the pairs to a file, in place of the file that is there. `labels` (may be null, or shorter than the
/// pairs) gives the children their "Label"; labels do not come back when the file is read. A null `comment`
/// writes none. True, or false with the old file in place: `file` is null or empty, the arrays are null,
/// empty or differ in size, a value is longer than a tree can hold, or the file could not be written.
[[nodiscard]] RYTREE_API bool vctree_save_values_with_ids(const char* file, CArray<int, int>* ids,
                                                          CStringArray* values, const char* comment,
                                                          CStringArray* labels);

/// vctree_set_theme with labels, as in the file form, on a node that must be valid: false and nothing changes
/// if it is not.
[[nodiscard]] RYTREE_API bool vctree_save_values_with_ids(RYXmlWrapperBase* node, CArray<int, int>* ids,
                                                          CStringArray* values, const char* comment,
                                                          CStringArray* labels);
