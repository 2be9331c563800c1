// The encoding of narrow strings.
#pragma once

#include <rytree_host/node.h>

extern "C" {

/// Says which encoding all narrow strings are in, those given to this library and those that it gives: 65001
/// (UTF-8, at the start), 1250 to 1258, 932, 936, 949, 950 or 28591. Nonzero on success, 0 for another page,
/// which changes nothing.
///
/// The page holds for the whole process. Set it once, before trees are made or read and while no other thread
/// works on one.
/// - Texts and attribute values that a tree holds already keep their bytes. Tags and attribute names are
///   given and taken in the page that is set; one that it has no characters for is refused, and is not found.
/// - Comparisons that ignore case, searches, separators and cuts go by the characters of the page: nothing is
///   found in the middle of a character of two bytes.
/// - Files stay UTF-8 and are converted on the way. `load` reads any encoding that a file declares. A
///   character that the page lacks makes `load` and SetXmlText fail, with nothing changed;
///   RYXmlWrapperBase::LastFailure tells which one and where. Bytes that are not a character of the page are
///   kept in values and come back from a file; XML text for SetXmlText must be without them.
RYTREE_API int rytree_set_default_code_page(int page);

}  // extern "C"
