// The time per node of exports that walk a tree or an array, small trees against large ones.
#pragma once

#include <vector>

void register_export_growth(const std::vector<int>& sizes, int rounds);
