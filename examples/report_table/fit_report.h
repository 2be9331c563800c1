// The report of a fit, as a tree.
#pragma once

#include <rytree_host/node.h>

/// The report of a fit to two data sets, each of a time, a signal and a background. Its branches are "Data"
/// (a composite range), "Weights", "Parameters", "Statistics" and "Table" (the table of the input data).
RYXmlWrapperBase make_fit_report();
