// Two trees in one text, with a NUL between them. The values of the first go into the second by ID, and what
// is then equal in both is removed from it. On the way they are written to a theme and read back.
#include <rytree_Utils.h>

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t middle = bytes.find('\0');
  if (middle == std::string::npos) return 0;
  RYXmlWrapperBase source;
  RYXmlWrapperBase target;
  source.CreateNew(0, nullptr);
  target.CreateNew(0, nullptr);
  if (source.SetXmlText(bytes.c_str()) == 0 || target.SetXmlText(bytes.c_str() + middle + 1) == 0) return 0;
  CArray<int, int> ids;
  CStringArray values;
  CString error;
  vctree_get_values_with_ids(&source, &ids, &values, 1, 0, 0, nullptr, 1, &error);
  RYXmlWrapperBase theme;
  if (vctree_set_theme(&theme, &ids, &values, nullptr)) {
    CArray<int, int> read_ids;
    CStringArray read_values;
    vctree_get_theme(&theme, &read_ids, &read_values, nullptr);
    if (VCTreeIsSame(&ids, &read_ids) == 0) std::abort();
  }
  CStringArray saved;
  VCTreeGetValues(&target, &saved, false);
  rytree_whole_copy_values_by_id(&source, &target);
  VCTreeUpdateChanges(&target, &saved);
  rytree_remove_unchange_nodes_by_id(&source, &target, nullptr, nullptr);
  return 0;
}
