// Libraries that are loaded at run time by name.
#pragma once

#include "rytree_host/export.h"

using HMODULE = void*;
using FARPROC = void (*)();

/// Loads a library and gives its handle, or null. "Name.dll" and "Name" both stand for the local file
/// "Name.so", looked for beside the framework's own library first and then where the platform looks. A name
/// with a slash is opened as it is.
RYTREE_API HMODULE LoadLibraryA(const char* name);

/// The entry point of that name, or null.
RYTREE_API FARPROC GetProcAddress(HMODULE module, const char* name);

/// Releases a loaded library: nonzero on success, 0 for null too.
RYTREE_API int FreeLibrary(HMODULE module);
