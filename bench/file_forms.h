// The tree that is measured, written as files that are harder to read than most.
#pragma once

#include <string>

enum class FileForm {
  kCrLf,        // lines end with CR LF
  kCyrillic,    // Cyrillic letters in labels and texts
  kReferences,  // one to five references in each label, and as many in the longer texts
  kLongNames,   // 24 bytes more in each tag, and in the names of all attributes but "DataID"
  kOwnTags,     // each node has a tag of its own
  kCut,         // the last end tag is missing
};

/// `xml` is what make_tree gives.
std::string in_form(const std::string& xml, FileForm form);
