// The encoding of narrow strings.
#include <rytree_Utils/code_page.h>

int rytree_set_default_code_page(int page) { return RYXmlWrapperBase::SetDefaultCodePage(page); }
