// Libraries that are loaded at run time.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// What the names of their files end in.
extern const std::string_view kModuleEnding;

// Loads a library by its path or, without a folder, from where the system looks; on Windows that is the folder of the
// program and the system's own, but neither the current folder nor PATH. What the library needs is looked for there
// too and, on Windows, beside the library if that has a path. Null if anything fails.
void* OpenModule(const std::string& path);
bool CloseModule(void* module);

// The function of that name, or null.
using ModuleEntry = void (*)();
ModuleEntry FindEntry(void* module, const char* name);

// Whether the name has a folder, and so stands for one file.
bool HasFolder(std::string_view name);

// The folder, with its closing separator, of the library or program that this is linked into; "" if that is
// not known.
std::string OwnFolder();

}  // namespace platform
