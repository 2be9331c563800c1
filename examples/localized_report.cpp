// A report table whose labels are in the user's language.
#include <libintl.h>
#include <rytree_Utils.h>

#include <clocale>

#include "common/show.h"

namespace {

// [table]
void fill(RYXmlWrapperBase& table) {
  HostStringArray independents;
  independents.array().Add("time");
  HostStringArray dependents;
  dependents.array().Add("signal");
  HostIntArray methods;
  methods.array().Add(6);  // Variance = a*y^b
  RYXmlWrapperBase parameters = tree_from("<P><A>0.5</A><B>2</B><C/></P>");
  report_update_input_data_table(&table, /*data=*/0, /*sets=*/1, /*dependents=*/1, /*independents=*/1,
                                 &dependents, &independents, 0, &methods, &parameters, /*xyz=*/0);
}
// [table]

}  // namespace

int main(int argc, char** argv) {
  // [locale]
  std::setlocale(LC_ALL, "");
  if (argc > 1) bindtextdomain("rytree", argv[1]);  // a folder that holds LANGUAGE/LC_MESSAGES/rytree.mo
  // [locale]

  RYXmlWrapperBase table = tree_from("<Table/>");
  fill(table);
  show("table", table);

  // [block]
  bool block = true;
  VCTreeAccessBlockLocalization(&block, /*get=*/false);  // labels stay in English
  // [block]
  fill(table);
  show("blocked", table);
}
