// The exports whose growth is measured.
#pragma once

#include <span>

#include "growth_scene.h"

struct GrowthRow {
  const char* name;  // the export, and after a comma which of its cases this is
  void (*call)(Scene&);
  void (*prepare)(Scene&) = nullptr;
};

/// A row for each export whose work grows with a tree or an array, and several where it works in different
/// ways. An export that only forwards to another is measured by that one's row.
std::span<const GrowthRow> reading_rows();
std::span<const GrowthRow> writing_rows();
/// The same, with node operations, for inputs that are hard to work on.
std::span<const GrowthRow> hard_input_rows();
