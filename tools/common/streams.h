// Trees that come from files and pipes, and go there.
#pragma once

#include <rytree_Utils.h>

#include <string>

/// Whether the name is "-", which is standard input or standard output.
bool is_standard(const std::string& name);

/// The name of an input: "-" for all names of standard input.
std::string input_name(const std::string& name);
/// The name of an output: "-" for all names of standard output.
std::string output_name(const std::string& name);

/// Whether the name is "-", stands for a descriptor, or is that of something that exists and is neither a
/// regular file nor a folder: a FIFO, a device.
bool is_stream(const std::string& name);

/// The name of an input as messages tell it: "standard input" for "-".
std::string shown_input(const std::string& name);
/// The same for an output.
std::string shown_name(const std::string& name);

/// The tree in a file or a stream. Throws a Failure.
RYXmlWrapperBase load_tree(const std::string& name);

/// Writes the tree: a regular file is replaced as a whole or not at all, and an interruption leaves no other
/// file. Throws a Failure.
void save_tree(const RYXmlWrapperBase& tree, const std::string& name);
