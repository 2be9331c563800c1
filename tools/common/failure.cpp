#include "failure.h"

#include <rytree_Utils.h>

Failure file_failure(const std::string& file) {
  const RYXmlFailure failure = RYXmlWrapperBase::LastFailure();
  std::string reason = failure.text;
  // The reader says so of a file that ends early, too.
  if (reason == "no element found")
    reason = "the file ends too early: there is no element, or one is not closed";
  if (failure.line > 0) {
    return Failure(file + ':' + std::to_string(failure.line) + ':' + std::to_string(failure.column) + ": " +
                   reason);
  }
  // The reason names the file in quotes, perhaps by another path: name it once, as the user did.
  const std::size_t quote = reason.find(" '");
  if (quote != std::string::npos) reason.erase(quote, reason.rfind('\'') + 1 - quote);
  return Failure(file + ": " + reason);
}
