// The base of the host's handle classes.
#pragma once

#include "rytree_host/export.h"

class RYTREE_API TESAObj {
 public:
  TESAObj() = default;
  TESAObj(const TESAObj&) = default;
  TESAObj& operator=(const TESAObj&) = default;
  virtual ~TESAObj() = default;
  virtual int IsValid() const;
};
