// Array objects of the host, through which its modules hand arrays to the library.
#pragma once

#include "rytree_host/carray.h"
#include "rytree_host/export.h"
#include "rytree_host/types.h"

/// What `GetInternalArray` can be asked for.
inline constexpr int kHostStringArrayCode = 0x1001B;  // CStringArray, asked for without a scratch record
inline constexpr int kHostIntArrayCode = 0x10008;     // CArray<int, int>
inline constexpr int kHostDoubleArrayCode = 0x1000B;  // CArray<double, double>
inline constexpr int kHostBoolArrayCode = 0x10002;    // CArray<bool, bool>

/// The scratch record that goes with a request, all zero before each.
struct HostArrayScratch {
  DWORD words[5] = {};
};

/// An array object: an owner of one framework array.
class RYFRAMEWORK_API HostArrayObject {
 public:
  HostArrayObject() = default;
  HostArrayObject(const HostArrayObject&) = delete;
  HostArrayObject& operator=(const HostArrayObject&) = delete;
  virtual ~HostArrayObject();

  /// The framework array that `code` asks for, or null if this object holds no such array. The array stays
  /// the object's.
  virtual void* GetInternalArray(int code, void* scratch) = 0;
};

/// The bundled kind: it holds its array itself, answers its own code only and needs no scratch record.
template <class Array, int Code>
class HostArray final : public HostArrayObject {
 public:
  Array& array() noexcept { return array_; }
  const Array& array() const noexcept { return array_; }

  void* GetInternalArray(int code, void* /*scratch*/) override { return code == Code ? &array_ : nullptr; }

 private:
  Array array_;
};

using HostStringArray = HostArray<CStringArray, kHostStringArrayCode>;
using HostIntArray = HostArray<CArray<int, int>, kHostIntArrayCode>;
using HostDoubleArray = HostArray<CArray<double, double>, kHostDoubleArrayCode>;
using HostBoolArray = HostArray<CArray<bool, bool>, kHostBoolArrayCode>;
