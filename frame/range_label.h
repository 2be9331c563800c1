// The host's word for a range.
#pragma once

/// The word that the labels of ranges begin with. Fetched at the first call and kept until the library is
/// unloaded; an empty text is fetched again at the next call. Any thread may call it at any time.
const char* VCTreeRangeLabelText();
