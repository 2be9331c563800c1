// Libraries that are loaded at run time by name. system_names.h tells when these names are global too.
#pragma once

#include "rytree_host/export.h"

namespace rytree_host {

using HMODULE = void*;
using FARPROC = void (*)();

/// Loads a library and gives its handle, or null. "Name.dll" and "Name" both stand for the system's file of
/// that name ("Name.so" on Linux), looked for beside the framework's own library first and then where the
/// system looks: on Windows in the folder of the program, in the system's and in those that the program added with
/// AddDllDirectory, but neither in the current folder nor along PATH. A name with a folder is opened as it is. Null
/// too for a file that is damaged or lacks a library that it needs; no box asks the user.
RYFRAMEWORK_API HMODULE LoadLibraryA(const char* name);

/// The entry point of that name, or null.
RYFRAMEWORK_API FARPROC GetProcAddress(HMODULE module, const char* name);

/// Releases a loaded library: nonzero on success, 0 for null too.
RYFRAMEWORK_API int FreeLibrary(HMODULE module);

}  // namespace rytree_host

#include "rytree_host/system_names.h"
