// Builds the report of a small fit and prints it: its tree, and the table of its input data.
#include <rytree_Utils.h>

#include <iostream>

#include "fit_report.h"
#include "print.h"

int main() {
  bool source_texts = true;  // the same labels wherever this runs
  VCTreeAccessBlockLocalization(&source_texts, /*get=*/false);
  RYXmlWrapperBase report = make_fit_report();
  print_tree(std::cout, report);
  std::cout << '\n';
  print_table(std::cout, report);
  return std::cout.flush() ? 0 : 1;
}
