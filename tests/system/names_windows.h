// Uses the names that the host shares with Windows, and exports that take its types. Two sources include this, after the
// headers of both in either order.
#pragma once

#include "tree_text.h"

namespace {

// Where the code of a function is.
template <class Function>
HMODULE home(Function* function) {
  HMODULE module = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<const char*>(function), &module);
  return module;
}

inline void use_shared_names() {
  const HMODULE framework = GetModuleHandleA("ryframework.dll"), program = GetModuleHandleA(nullptr);
  const auto expect_two = [](const char* name, auto* own, auto* of_system, HMODULE own_home) {
    EXPECT_EQ(home(own), own_home) << name;
    EXPECT_EQ(reinterpret_cast<void*>(of_system),
              reinterpret_cast<void*>(::GetProcAddress(GetModuleHandleA("kernel32.dll"), name)));
  };
  expect_two("LoadLibraryA", rytree_host::LoadLibraryA, ::LoadLibraryA, framework);
  expect_two("GetProcAddress", rytree_host::GetProcAddress, ::GetProcAddress, framework);
  expect_two("FreeLibrary", rytree_host::FreeLibrary, ::FreeLibrary, framework);
  expect_two("lstrlenA", rytree_host::lstrlenA, ::lstrlenA, framework);
  expect_two("lstrcpynA", rytree_host::lstrcpynA, ::lstrcpynA, framework);
  expect_two("lstrcmpA", rytree_host::lstrcmpA, ::lstrcmpA, program);  // inline
  expect_two("lstrcmpiA", rytree_host::lstrcmpiA, ::lstrcmpiA, program);

  const rytree_host::HMODULE module = rytree_host::LoadLibraryA("ZANmsg");
  EXPECT_NE(rytree_host::GetProcAddress(module, "LocalizeString"), nullptr);
  EXPECT_NE(rytree_host::FreeLibrary(module), 0);
  char cut[] = "--";
  EXPECT_STREQ(rytree_host::lstrcpynA(cut, "\u00e9", 2), "");
  EXPECT_GT(rytree_host::lstrcmpA("a", "B"), 0);
  EXPECT_EQ(rytree_host::lstrcmpiA("\u00e9", "\u00c9") + rytree_host::lstrlenA("\u00e9"), 2);

  RYXmlWrapperBase node = parse("<R a='5'><A/></R>");
  DWORD next = 7;
  const _variant_t half(0.5);
  VCTreePrepareForMenu(&node, next);
  vctree_modify_DWORD_attribute(node, "a", 1, 0x80000000);
  node.SetPropertyValue("b", &half);
  double number = 1.5;
  _variant_t reference, date;
  reference.vt = VT_R8 | VT_BYREF, reference.pdblVal = &number;
  date.vt = VT_DATE, date.date = 45000.75;
  node.SetPropertyValue("c", &reference), node.SetPropertyValue("d", &date);
  EXPECT_EQ(
      text(node) + std::to_string(next),
      R"(<R _NodeID="268435456" a="-2147483644" b="0.5" c="1.5" d="45000.75"><A _NodeID="11" DataID="7"/></R>8)");
}

}  // namespace
