// What gdb is to show: see shown.gdb.
#include <rytree_Utils.h>

namespace {

void look(const RYXmlWrapperBase& line, const RYXmlWrapperBase& none, const RYXmlWrapperBase& gone,
          const CStringArray& names, const CArray<bool, bool>& flags, const CString& text) {
  std::printf("%d%d%d%d%d%d\n", line.IsNodeValid(), none.IsNodeValid(), gone.IsNodeValid(), names.GetSize(),
              flags.GetSize(), text.GetLength());
}

}  // namespace

int main() {
  RYXmlWrapperBase plot;
  plot.CreateNew(0, nullptr);
  if (plot.SetXmlText(
          R"(<Plot><Line DataID="11" _NodeID="3" Name="longer than twelve bytes"><Width Unit="mm">-25</Width>)"
          R"(<Title>Décay "A"</Title></Line><Gone/></Plot>)") == 0)
    return 1;
  RYXmlWrapperBase line;
  RYXmlWrapperBase gone;
  plot.FirstChild(line);
  line.NextSibling(gone);
  gone.RemoveNode();
  CStringArray names;
  names.Add("Width");
  names.Add("");
  CArray<bool, bool> flags;
  flags.Add(true);
  look(line, RYXmlWrapperBase(), gone, names, flags, "a\"b");
}
