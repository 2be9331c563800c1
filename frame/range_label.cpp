// The host's word for a range.
#include "frame/range_label.h"

#include <rytree_host/framework.h>
#include <rytree_host/ryUtils.h>

#include <atomic>
#include <mutex>

namespace {

constexpr int kRangeLabelMessage = 1996;

/// Fetched under a lock, then read without one.
class RangeLabel {
 public:
  const char* text() {
    if (!there_.load(std::memory_order_acquire)) {
      const std::lock_guard lock(fetching_);
      if (text_.IsEmpty()) ryu_load_err_msg_str(kRangeLabelMessage, &text_, -1);
      if (text_.IsEmpty()) return "";
      there_.store(true, std::memory_order_release);
    }
    return text_.GetString();
  }

 private:
  std::mutex fetching_;
  std::atomic<bool> there_ = false;
  CString text_;
} range_label;

}  // namespace

const char* VCTreeRangeLabelText() { return range_label.text(); }
