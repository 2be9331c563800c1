#include <rytree_Utils.h>

#include <cstdio>

int main() {
  RYXmlWrapperBase saved;
  RYXmlWrapperBase fresh;
  saved.CreateNew(0, nullptr);
  fresh.CreateNew(0, nullptr);
  const char* const settings =
      R"(<Plot><Line><Width DataID="11">2.5</Width></Line><Title DataID="12">Décay</Title></Plot>)";
  const char* const defaults =
      R"(<Plot><Title DataID="12"/><Style><Width DataID="11">1</Width></Style></Plot>)";
  if (saved.SetXmlText(settings) == 0 || fresh.SetXmlText(defaults) == 0) return 1;

  const int matched = rytree_copy_values_by_id(&saved, &fresh, 0, nullptr, nullptr, 0, 0, 0);

  CString text;
  fresh.GetXmlText(&text);
  std::printf("%d values\n%s\n", matched, text.GetString());
}
