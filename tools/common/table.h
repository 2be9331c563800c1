// Rows in aligned columns.
#pragma once

#include <ostream>
#include <string>
#include <vector>

using Row = std::vector<std::string>;

/// Prints rows of equal length, two blanks between the columns, without columns that are empty. In a terminal of
/// so many columns the row fits a line: the texts of column `path` are cut at their front, those of the others
/// at their ends. With 0 columns nothing is cut.
void print_rows(std::ostream& out, std::vector<Row> rows, int columns, std::size_t path);
