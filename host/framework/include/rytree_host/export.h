// The one macro of the project: what a shared library shows to its users.
#pragma once

#define RYTREE_API __attribute__((visibility("default")))
