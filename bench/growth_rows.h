// The exports whose growth is measured.
#pragma once

#include <span>

#include "growth_scene.h"

struct GrowthRow {
  const char* name;  // of the export, and which of its ways it goes
  void (*call)(Scene&);
  void (*prepare)(Scene&) = nullptr;
};

/// A row for each export whose work grows with a tree or an array, or for the one to which it hands on; more
/// where an export has several ways to go.
std::span<const GrowthRow> reading_rows();
std::span<const GrowthRow> writing_rows();
