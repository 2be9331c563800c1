// Nodes as XML text and in files: what comes back, what is refused and why, and what a failed save leaves.
#include <thread>

#include "failure.h"
#include "scratch_folder.h"
#include "tree_text.h"

namespace {

using namespace std::string_literals;
using Node = RYXmlWrapperBase;

std::string repeat(const std::string& piece, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += piece;
  return all;
}

std::string attribute(const Node& node) {
  CString read;
  node.GetPropertyValue("a", read);
  return std::string(read.View());
}

class Files : public FolderTest {
 protected:
  ~Files() override { Node::SetDefaultCodePage(65001); }

  std::string path(const std::string& name = "x.xml") const { return (folder / name).string(); }
  // The tree loaded from these bytes, or "! " and why it cannot be loaded.
  std::string loaded(const std::string& bytes) const {
    std::ofstream(path(), std::ios::binary) << bytes;
    Node tree;
    return tree.load(path().c_str(), 0) != 0 ? text(tree) : "! "s + Node::LastFailure().text;
  }
  Node saved_and_loaded(const Node& tree) const {
    Node back;
    EXPECT_EQ(tree.Save(path().c_str()), 1) << failure();
    EXPECT_EQ(back.load(path().c_str(), 0), 1) << failure();
    return back;
  }
};

TEST_F(Files, AreWrittenInThisForm) {
  const Rows<const char*, const char*> cases = {
      {"<a/>", "<a/>\n"},
      {"<a x='1' _NodeID='-7' b=''>t</a>", "<a _NodeID=\"-7\" x=\"1\" b=\"\">t</a>\n"},
      {"<a> t <b><c/></b><d>1</d></a>", "<a> t <b>\n    <c/>\n  </b>\n  <d>1</d>\n</a>\n"},
      {"<a b='&lt;&amp;>\"&#9;&#10;&#13;'>\t\n&#13;\"]]&gt;</a>",
       "<a b=\"&lt;&amp;&gt;&quot;&#9;&#10;&#13;\">\t\n&#13;\"]]&gt;</a>\n"},
      {"<a b='12345678&gt;12345678&quot;1234567&lt;\\'>12345678&gt;1234567&amp;\\</a>",
       "<a b=\"12345678&gt;12345678&quot;1234567&lt;\\\">12345678&gt;1234567&amp;\\</a>\n"},
      {"<a _NodeEscape='1' b='\\5C'>\\01\xC3\xA9</a>", "<a _NodeEscape=\"1\" b=\"\\5C\">\\01\xC3\xA9</a>\n"},
      {"<a _NodeEscape='1'>\\20\\0a<b/></a>", "<a _NodeEscape=\"1\">\\20\\0A<b/>\n</a>\n"},
      {"<a b='\\41'>\\</a>", "<a b=\"\\41\">\\</a>\n"},
      {"<a xml:space='preserve'> <b> x<c/></b></a>", "<a xml:space=\"preserve\"> <b> x<c/></b></a>\n"},
      {"<a xml:space='preserve'><d xml:space='default'><e xml:space='preserve'><f/></e></d></a>",
       "<a xml:space=\"preserve\"><d xml:space=\"default\">\n    <e xml:space=\"preserve\"><f/></e>\n  "
       "</d></a>\n"},
      {"<a _NodeEscape='1' xml:space='no'>\\20<b/></a>",
       "<a _NodeEscape=\"1\" xml:space=\"no\">\\20<b/>\n</a>\n"},
  };
  for (const auto& [xml, file] : cases) {
    const Node tree = parse(xml);
    EXPECT_EQ(text(saved_and_loaded(tree)), text(tree));
    EXPECT_EQ(content(path()), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"s + file);
  }
}

TEST_F(Files, OfOtherProgramsAreRead) {
  const std::string utf16 = "\xFF\xFE<\0a\0>\0\xE9\0<\0/\0a\0>\0"s;
  const std::string chain = "<!DOCTYPE a [<!ENTITY x 'X'><!ENTITY y '&x;&x;'><!ATTLIST b d CDATA '&y;'>]>";
  const Rows<std::string, const char*> cases = {
      {"\xEF\xBB\xBF<?xml version='1.0'?><!-- c --><?p i?><a/><!-- c -->\n", "<a/>"},
      {"<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a/>", "<a/>"},
      {"<a>\n <b/> \r\n\t<!-- c --> <c/> </a>", "<a><b/><c/></a>"},
      {"<a>x<!-- c -->y<?p i?>&#122; <b/> 1 <![CDATA[<2>]]> </a>", "<a>xyz  1 &lt;2&gt; <b/></a>"},
      {"<a><b>x<c/></b> <d/>z</a>", "<a>z<b>x<c/></b><d/></a>"},
      {"<a>1\r\n2<b> \n</b></a>", "<a>1\n2<b> \n</b></a>"},
      {"<a _NodeID='-1' b='\\41'>\\41</a>", "<a b=\"\\41\">\\41</a>"},
      {"<a xml:space='preserve'>\n<b> <c/>\t</b><b xml:space='default'> <c/> </b></a>",
       "<a xml:space=\"preserve\">\n<b> \t<c/></b><b xml:space=\"default\"><c/></b></a>"},
      {"<!DOCTYPE a SYSTEM 'x' [<!ENTITY y '&#38;amp;'><!ENTITY z '&y;'><!ATTLIST a c CDATA '&z;'>]><a "
       "b='&z;'/>",
       "<a b=\"&amp;\" c=\"&amp;\"/>"},
      {"<a b='\\4G\\4\\' _NodeEscape='1'>\\41\\6c\\</a>", "<a b=\"\\4G\\4\\\">Al\\</a>"},
      {chain + "<a>&y;<b/></a>", "<a>XX<b d=\"XX\"/></a>"},
      {utf16, "<a>\xC3\xA9</a>"},
  };
  for (const auto& [file, xml] : cases) EXPECT_EQ(loaded(file), xml);
}

TEST_F(Files, AreRefusedWithReasonAndPlace) {
  const Rows<std::string, const char*> cases = {
      {"", "no element found 1:1 0"},
      {"<a>\n <b></a>", "mismatched tag 2:7 10"},
      {"<a>&x;</a>", "undefined entity 1:4 3"},
      {"<!DOCTYPE a SYSTEM 'x'><a>&x;</a>", "undefined entity 1:27 26"},
      {"<!DOCTYPE a [<!ENTITY x SYSTEM 'file'>]><a>&x;</a>",
       "error in processing external entity reference 1:44 43"},
      {"<!DOCTYPE a SYSTEM 'x'>\n<a b='x&y;z'/>", "undefined entity 2:1 24"},
      {"<!DOCTYPE a [<!ENTITY y '&#38;z;'><!ENTITY % x SYSTEM 'x'>%x;]><a b='&y;'/>",
       "undefined entity 1:64 63"},
      {"<!DOCTYPE a SYSTEM 'x' [<!ATTLIST a b CDATA '>&y;'>]><a/>", "undefined entity 1:51 50"},
      {"<a>\n<b _NodeID='1x'/></a>", "a _NodeID that is not an int 2:1 4"},
      {"<a _NodeID='2147483648'/>", "a _NodeID that is not an int 1:1 0"},
      {"<a _NodeEscape='2'/>", "a _NodeEscape that is not 1 1:1 0"},
      {"<a><_NodeID/></a>", "a reserved or overlong name 1:4 3"},
      {"<a>\xC3\xA9<</a>", "not well-formed (invalid token) 1:6 6"},
  };
  Node tree = parse("<t><old><x/></old></t>");
  Node old = at(tree, {0});
  for (const auto& [xml, why] : cases) {
    for (const bool file : {false, true}) {
      Node node = old;
      if (file) std::ofstream(path(), std::ios::binary) << xml;
      EXPECT_EQ(file ? node.load(path().c_str(), 0) : node.SetXmlText(xml.c_str()), 0) << xml;
      EXPECT_EQ(failure(), why);
      EXPECT_TRUE(node == old);
      EXPECT_EQ(text(tree), "<t><old><x/></old></t>");
    }
  }
  const std::string whole = "<a _NodeID='1' b='&amp;'>t<!-- --><b>&#9;</b><![CDATA[x]]></a>";
  for (std::size_t cut = 0; cut < whole.size(); ++cut)
    EXPECT_EQ(old.SetXmlText(whole.substr(0, cut).c_str()), 0) << cut;
  EXPECT_EQ(text(tree), "<t><old><x/></old></t>");
  // A text in memory is in the default code page, whatever it declares.
  EXPECT_EQ(text(parse("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA9</a>")), "<a>\xC3\xA9</a>");
  EXPECT_EQ(old.SetXmlText((" <!-- c --> " + whole + "\n").c_str()), 1);
  EXPECT_EQ(text(tree), "<t><a _NodeID=\"1\" b=\"&amp;\">tx<b>\t</b></a></t>");
  EXPECT_TRUE(old == at(tree, {0}));
  EXPECT_EQ(failure(), " 0:0 -1");
}

TEST_F(Files, TellWhatIsPassedOver) {
  const Rows<std::string, std::vector<int>> cases = {
      {"<a> <b>x</b> </a>", {0, 0, 0, 0, 0}},
      {"<!-- c --><a>x<!-- c --><b/><?p i?> </a><!-- c --><?p?>", {3, 2, 0, 0, 0}},
      {"<a><b>x<c/> <![CDATA[y]]><c/>z</b>x<!-- c -->y<d/></a>", {1, 0, 0, 0, 2}},
      {"<a><b/>x<b><c/>&#32;</b>y</a>", {0, 0, 0, 0, 1}},
      {"<a xml:space='preserve'><b><c/> </b> <b/></a>", {0, 0, 0, 0, 2}},
      {"<!DOCTYPE a [<!-- c --><?p?><!ENTITY x '1'><!ENTITY % y '2'><!ENTITY z SYSTEM 'f'>]><a/>",
       {1, 1, 1, 3, 0}},
  };
  const auto passed_over = [] {
    const auto [comments, instructions, doctypes, entities, mixed_nodes] = Node::LastPassedOver();
    return std::vector<int>{comments, instructions, doctypes, entities, mixed_nodes};
  };
  for (const auto& [xml, counts] : cases) {
    parse(xml);
    EXPECT_EQ(passed_over(), counts) << xml;
    loaded("<?xml version='1.0' encoding='ISO-8859-1'?>" + xml);  // which is not read by the plain reader
    EXPECT_EQ(passed_over(), counts) << xml;
    std::thread([&] { EXPECT_EQ(passed_over(), std::vector<int>(5)); }).join();
    loaded("<!-- c --><a>");
    EXPECT_EQ(passed_over(), std::vector<int>(5));
  }
}

TEST_F(Files, KeepDeepAndLongContent) {
  const std::string most = repeat("<a>", 1023) + "<a/>" + repeat("</a>", 1023);
  EXPECT_EQ(loaded(most), most);
  Node low = at(parse("<r><m><l/></m></r>"), {0, 0});
  EXPECT_EQ(low.SetXmlText((repeat("<a>", 1023) + repeat("</a>", 1023)).c_str()), 0);
  EXPECT_EQ(low.SetXmlText((repeat("<a>", 1022) + repeat("</a>", 1022)).c_str()), 1);

  const std::string big(200000, 'x');
  std::string wide = "<a";
  for (int i = 1; i < 30000; ++i) wide += " a" + std::to_string(i) + "=\"\"";
  wide += " a=\"" + repeat(big, 10) + "\">" + repeat(big + "&amp;", 10) + "</a>";
  EXPECT_EQ(loaded("<!--" + repeat(big, 10) + "-->" + wide), wide);
}

TEST_F(Files, AreUtf8InEveryCodePage) {
  for (const int page : {0, 1249, 1259, 437, 65000, -1}) EXPECT_EQ(Node::SetDefaultCodePage(page), 0) << page;
  const Rows<int, std::string, std::string> pages = {
      {1250, "\xB9", "\xC4\x85"},        {1251, "\xE9", "\xD0\xB9"},    {1252, "\x80", "\xE2\x82\xAC"},
      {1253, "\xF0", "\xCF\x80"},        {1254, "\xFD", "\xC4\xB1"},    {1255, "\xE0", "\xD7\x90"},
      {1256, "\xC7", "\xD8\xA7"},        {1257, "\xE0", "\xC4\x85"},    {1258, "a\xCC", "a\xCC\x80"},
      {932, "\x83\x5C", "\xE3\x82\xBD"}, {936, "\xA6\xD0", "\xCF\x80"}, {949, "\xB0\xA1", "\xEA\xB0\x80"},
      {950, "\xA4\xE5", "\xE6\x96\x87"}, {28591, "\x80", "\xC2\x80"},
  };
  for (const auto& [number, bytes, in_utf8] : pages) {
    ASSERT_EQ(Node::SetDefaultCodePage(number), 1);
    EXPECT_EQ(attribute(saved_and_loaded(parse("<a a='" + bytes + "'/>"))), bytes);
    EXPECT_NE(content(path()).find("a=\"" + in_utf8 + "\""), std::string::npos);
    EXPECT_EQ(loaded("<a><!--\u2211\u0414-->" + in_utf8 + "</a>"), "<a>" + bytes + "</a>");
    // Thai, which none of the pages has.
    for (const auto& [before, after] : Rows<std::string, const char*>{
             {"<a>" + in_utf8, "</a>"}, {"<a b='" + in_utf8, "'/>"}, {"<!--\u0E01--><a", "/>"}}) {
      EXPECT_EQ(loaded(before + "\u0E01" + after), "! U+0E01 is not in code page " + std::to_string(number));
      EXPECT_EQ(Node::LastFailure().offset, std::ssize(before));
    }
  }
  EXPECT_EQ(Node::SetDefaultCodePage(932), 1);
  EXPECT_EQ(Node::SetDefaultCodePage(1), 0);
  EXPECT_EQ(attribute(parse("<a _NodeEscape='1' a='\x83\x5C\\5C'/>")), "\x83\x5C\x5C");
}

}  // namespace
