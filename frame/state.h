// What the library keeps between calls. None of it is guarded: it belongs to one thread at a time.
#pragma once

/// The host's word for a range, which labels of ranges begin with. Fetched at the first call and kept until
/// the library is unloaded; an empty text is fetched again at the next call.
const char* VCTreeRangeLabelText();
