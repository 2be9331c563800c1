// The libraries in the process of the test.
#pragma once

#include <set>
#include <string>

/// The files of all of them, without those of the system where it keeps them for a next time.
std::set<std::string> loaded_modules();

bool is_loaded(const std::string& path);

/// The function of a library of the host that one of the test's own has taken the place of; `symbol` is its name there.
void* replaced_function(const std::string& library, const char* symbol);
