// The time per node of exports that walk a tree or an array: does it grow with the tree?
#pragma once

#include <vector>

void register_export_growth(const std::vector<int>& sizes, int rounds);
