// The weight methods: their names and what they need.
#include <rytree_Utils/weighting.h>

#include <iterator>

namespace {

struct WeightMethod {
  const char* name;
  int data, a, b, c;  // 1 if needed
};

constexpr WeightMethod kMethods[] = {
    {"No Weighting", 0, 0, 0, 0},
    {"Instrumental", 1, 0, 0, 0},
    {"Statistical", 0, 0, 0, 0},
    {"Arbitrary Dataset", 1, 0, 0, 0},
    {"Direct Weighting", 1, 0, 0, 0},
    {"Variance ~ y^2", 0, 0, 0, 0},
    {"Variance = a*y^b", 0, 1, 1, 0},
    {"Variance = c^b+a*y^b", 0, 1, 1, 1},
    {"Variance = a*y^b*c^(tlast-t)", 1, 1, 1, 1},
    {"Variance ~ yfit", 0, 0, 0, 0},
    {"Variance ~ yfit^2", 0, 0, 0, 0},
    {"Variance = a*yfit^b", 0, 1, 1, 0},
    {"Variance = c^b+a*yfit^b", 0, 1, 1, 1},
    {"Variance = a*yfit^b*c^(tlast-t)", 1, 1, 1, 1},
    {"Variance = [max(z,a)]^b", 0, 1, 1, 0},
};
constexpr int kCount = static_cast<int>(std::size(kMethods));

const WeightMethod* find_method(int method) {
  return method >= 0 && method < kCount ? &kMethods[method] : nullptr;
}

}  // namespace

int rytree_fitter_get_weight_mth_info(int method, CString* name, int* needData, int* needA, int* needB,
                                      int* needC) {
  const WeightMethod* const found = find_method(method);
  const WeightMethod info = found != nullptr ? *found : WeightMethod{};
  if (needData != nullptr) *needData = info.data;
  if (needA != nullptr) *needA = info.a;
  if (needB != nullptr) *needB = info.b;
  if (needC != nullptr) *needC = info.c;
  if (name != nullptr) VCTreeGetFitterWeightStrings(method, name, nullptr);
  return found != nullptr ? 1 : 0;
}

int VCTreeGetFitterWeightStrings(int method, CString* name, CStringArray* names) {
  if (name != nullptr) {
    const WeightMethod* const found = find_method(method);
    if (found == nullptr) {
      name->Empty();
      if (names != nullptr) names->SetSize(0);
      return -1;
    }
    *name = found->name;
  }
  if (names != nullptr) {
    names->SetSize(kCount);
    for (int i = 0; i < kCount; ++i) names->SetAt(i, kMethods[i].name);
  }
  return kCount;
}
