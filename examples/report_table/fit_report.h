// The report of a fit, as a tree.
#pragma once

#include <rytree_host/node.h>

/// Two data sets of a time, a signal and a background: the branches "Data" (composite range), "Weights",
/// "Parameters", "Statistics" and "Table", the table of the input data.
RYXmlWrapperBase make_fit_report();
