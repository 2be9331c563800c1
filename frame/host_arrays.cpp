// Opening the arrays inside host objects.
#include "frame/host_arrays.h"

namespace {

template <class Array>
Array* open(HostArrayObject* object, int code, void* scratch) {
  return object != nullptr ? static_cast<Array*>(object->GetInternalArray(code, scratch)) : nullptr;
}

template <class T>
CArray<T, T>* open_with_scratch(HostArrayObject* object, int code) {
  HostArrayScratch scratch;
  return open<CArray<T, T>>(object, code, &scratch);
}

}  // namespace

CStringArray* open_strings(HostArrayObject* object) {
  return open<CStringArray>(object, kHostStringArrayCode, nullptr);
}
CArray<int, int>* open_ints(HostArrayObject* object) {
  return open_with_scratch<int>(object, kHostIntArrayCode);
}
CArray<double, double>* open_doubles(HostArrayObject* object) {
  return open_with_scratch<double>(object, kHostDoubleArrayCode);
}
CArray<bool, bool>* open_bools(HostArrayObject* object) {
  return open_with_scratch<bool>(object, kHostBoolArrayCode);
}
