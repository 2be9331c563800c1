// Threads with trees of their own need no lock, whatever they call. scripts/check runs this under the thread
// sanitizer.
#include <rytree_host/ryUtils.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "frame/range_label.h"
#include "fuzz/calls/call.h"
#include "system/modules.h"
#include "tree_text.h"

namespace {

constexpr std::size_t kThreads = 8;
constexpr int kRangeLabel = 1996;  // the message that is fetched once, for all threads
std::atomic<int> label_fetches = 0;

void dawdle() { std::this_thread::sleep_for(std::chrono::milliseconds(50)); }

}  // namespace

// These take the place of the host's functions. While they dawdle, all other threads come to the first use of what is
// fetched or loaded.
int ryu_load_err_msg_str(int number, CString* out, int option) {
  static auto* const real = reinterpret_cast<decltype(&ryu_load_err_msg_str)>(
      replaced_function("ryUtils", "_Z20ryu_load_err_msg_striP7CStringi"));
  if (number == kRangeLabel) {
    ++label_fetches;
    dawdle();
  }
  return real(number, out, option);
}
rytree_host::HMODULE rytree_host::LoadLibraryA(const char* name) {
  static auto* const real = reinterpret_cast<decltype(&rytree_host::LoadLibraryA)>(
      replaced_function("ryframework", "_ZN11rytree_host12LoadLibraryAEPKc"));
  dawdle();
  return real(name);
}

namespace {

using Outcomes = std::vector<std::string>;  // one for each export

/// Calls all exports in all ways that succeed, from one of them on, with a step right before each.
template <class Step>
Outcomes outcomes(std::size_t first, Step step) {
  Outcomes all(calls::export_count());
  for (std::size_t i = 0; i < all.size(); ++i) {
    const std::size_t number = (first + i) % all.size();
    const calls::Opcode& opcode = calls::opcodes()[number];
    for (const calls::Way& way : opcode.ways) {
      calls::Scene scene;
      scene.around = [&](const std::function<int()>& call) { return step(), call(); };
      all[number] += calls::outcome(scene, opcode, way);
    }
  }
  return all;
}

TEST(Threads, CallEveryExportOnTreesOfTheirOwn) {
  const auto no_step = [] {};
  // First all call the same export at a time, as nothing is loaded yet that is loaded once; then each another.
  std::atomic<std::size_t> arrived = 0;
  const auto wait_for_all = [&] {
    const std::size_t all = (arrived++ / kThreads + 1) * kThreads;
    while (arrived < all) std::this_thread::yield();
  };
  std::vector<Outcomes> found(2 * kThreads);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      found[2 * i] = outcomes(0, wait_for_all);
      found[2 * i + 1] = outcomes(29 * i, no_step);
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(label_fetches, 1);
  const Outcomes expected = outcomes(0, no_step);
  for (const Outcomes& shown : found) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_EQ(shown[i], expected[i]) << calls::opcodes()[i].name;
    }
  }
}

// The counter above and the lock would hide a read in the wrong order: here nothing but the label itself gives one.
TEST(Threads, SeeTheLabelThatAnotherFetched) {
  std::atomic<bool> fetched = false;
  std::string seen;
  std::thread late([&] {
    while (!fetched.load(std::memory_order_relaxed)) std::this_thread::yield();
    seen = VCTreeRangeLabelText();
  });
  const std::string label = VCTreeRangeLabelText();
  fetched.store(true, std::memory_order_relaxed);
  late.join();
  EXPECT_EQ(seen, label);
}

/// The labels of a table that has the columns of data, ranges and weights.
std::string labels_of_a_table() {
  RYXmlWrapperBase table = parse("<T/>");
  report_make_input_data_table_var_row(&table, 0, 0, 0, true, "y", 1, 0, 1, 0, 1, nullptr, 0, 0);
  std::string labels;
  for (const int cell : {0, 1, 2, 3, 4}) {
    CString label;
    at(table, {0, cell}).GetPropertyValue("Label", label);
    labels.append(label.View()).append("|");
  }
  return labels;
}

TEST(Threads, FillTablesOfTheirOwn) {
  int wrong[kThreads] = {};
  std::vector<std::thread> threads;
  for (int& count : wrong) {
    threads.emplace_back([&count] {
      for (int i = 0; i < 500; ++i)
        count += labels_of_a_table() != "Dep/Indep|Data|Range|Weight Type|Weight Data|" ? 1 : 0;
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const int count : wrong) EXPECT_EQ(count, 0);
}

}  // namespace
