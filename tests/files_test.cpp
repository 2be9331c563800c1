// Nodes as XML text and in files: what comes back, what is refused and why, and what a failed save leaves.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <rytree_host/utf8.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "tree_text.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

std::string repeat(const std::string& piece, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += piece;
  return all;
}

class Files : public testing::Test {
 protected:
  Files() {
    std::string pattern = testing::TempDir() + "filesXXXXXX";
    folder = mkdtemp(pattern.data());
  }
  ~Files() override {
    RYXmlWrapperBase::SetDefaultCodePage(65001);
    fs::remove_all(folder);
  }

  std::string path(const std::string& name = "x.xml") const { return folder / name; }
  static std::string content(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static void put(const std::string& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
  }
  std::ptrdiff_t entries() const { return std::distance(fs::directory_iterator(folder), {}); }

  // The element text of what is loaded from these bytes, or why it is not.
  std::string loaded(const std::string& bytes) const {
    put(path(), bytes);
    RYXmlWrapperBase tree;
    return tree.load(path().c_str(), 0) != 0 ? text(tree) : "! "s + RYXmlWrapperBase::LastFailure().text;
  }
  RYXmlWrapperBase saved_and_loaded(const RYXmlWrapperBase& tree) const {
    RYXmlWrapperBase back;
    EXPECT_EQ(tree.Save(path().c_str()), 1) << RYXmlWrapperBase::LastFailure().text;
    EXPECT_EQ(back.load(path().c_str(), 0), 1) << RYXmlWrapperBase::LastFailure().text;
    return back;
  }

  void expect_comes_back(const std::vector<std::string>& texts) const;

  fs::path folder;
};

std::string value(RYXmlWrapperBase node) {
  CString read;
  node.NodeValue(read, 1, 1, nullptr);
  return std::string(read.View());
}
std::string attribute(const RYXmlWrapperBase& node) {
  CString read;
  node.GetPropertyValue("a", read);
  return std::string(read.View());
}

// Each text everywhere a node can have it: in attribute and text, of a branch and of a leaf.
RYXmlWrapperBase filled(const std::vector<std::string>& texts) {
  RYXmlWrapperBase root;
  root.CreateNew(0, nullptr);
  for (const std::string& bytes : texts) {
    RYXmlWrapperBase node(root);
    for (const char* const tag : {"branch", "leaf"}) {
      CString all{std::string_view(bytes)};
      node.AddNode(node, tag, -1);
      node.SetPropertyValue("a", all);
      node.NodeValue(all, 0, 1, nullptr);
    }
  }
  return root;
}
void expect_filled(const RYXmlWrapperBase& root, const std::vector<std::string>& texts) {
  RYXmlWrapperBase branch;
  root.FirstChild(branch);
  for (const std::string& bytes : texts) {
    for (const RYXmlWrapperBase& node : {branch, at(branch, {0})}) {
      ASSERT_EQ(attribute(node), bytes);
      ASSERT_EQ(value(node), bytes);
    }
    branch.NextSibling(branch);
  }
}

void Files::expect_comes_back(const std::vector<std::string>& texts) const {
  const RYXmlWrapperBase tree = filled(texts);
  expect_filled(saved_and_loaded(tree), texts);
  expect_filled(parse(text(tree)), texts);
}

TEST_F(Files, AreWrittenInThisForm) {
  const std::pair<const char*, const char*> cases[] = {
      {"<a/>", "<a/>\n"},
      {"<a x='1' _NodeID='-7' b=''>t</a>", "<a _NodeID=\"-7\" x=\"1\" b=\"\">t</a>\n"},
      {"<a><b><c/></b><d>1</d></a>", "<a>\n  <b>\n    <c/>\n  </b>\n  <d>1</d>\n</a>\n"},
      {"<a> t <b/><c/></a>", "<a> t <b/>\n  <c/>\n</a>\n"},
      {"<a b='&lt;&amp;>\"&#9;&#10;&#13;'>\t\n&#13;\"]]&gt;</a>",
       "<a b=\"&lt;&amp;&gt;&quot;&#9;&#10;&#13;\">\t\n&#13;\"]]&gt;</a>\n"},
      {"<a _NodeEscape='1' b='\\5C'>\\01\xC3\xA9</a>", "<a _NodeEscape=\"1\" b=\"\\5C\">\\01\xC3\xA9</a>\n"},
      {"<a _NodeEscape='1'>\\20\\0a<b/></a>", "<a _NodeEscape=\"1\">\\20\\0A<b/>\n</a>\n"},
      {"<a b='\\41'>\\</a>", "<a b=\"\\41\">\\</a>\n"},
  };
  for (const auto& [xml, file] : cases) {
    const RYXmlWrapperBase tree = parse(xml);
    EXPECT_EQ(text(saved_and_loaded(tree)), text(tree));
    EXPECT_EQ(content(path()), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"s + file);
  }
}

TEST_F(Files, OfOtherProgramsAreRead) {
  const std::string utf16 = "\xFF\xFE<\0a\0>\0\xE9\0<\0/\0a\0>\0"s;
  const std::string chain = "<!DOCTYPE a [<!ENTITY x 'X'><!ENTITY y '&x;&x;'><!ATTLIST b d CDATA '&y;'>]>";
  const std::pair<std::string, const char*> cases[] = {
      {"\xEF\xBB\xBF<?xml version='1.0'?><!-- c --><?p i?><a/><!-- c -->\n", "<a/>"},
      {"<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a/>", "<a/>"},
      {"<a>\n <b/> \r\n\t<!-- c --> <c/> </a>", "<a><b/><c/></a>"},
      {"<a>x<!-- c -->y<?p i?>&#122; <b/> 1 <![CDATA[<2>]]> </a>", "<a>xyz  1 &lt;2&gt; <b/></a>"},
      {"<a> \n</a>", "<a> \n</a>"},
      {"<a><b>x<c/></b> <d/>z</a>", "<a>z<b>x<c/></b><d/></a>"},
      {"<a>1\r\n2<b> </b></a>", "<a>1\n2<b> </b></a>"},
      {"<a _NodeID='1x' _NodeEscape='2' b='\\41'>\\41</a>", "<a b=\"\\41\">\\41</a>"},
      {"<a b='\\4G\\4\\' _NodeEscape='1'>\\41\\6c\\</a>", "<a b=\"\\4G\\4\\\">Al\\</a>"},
      {chain + "<a>&y;<b/></a>", "<a>XX<b d=\"XX\"/></a>"},
      {utf16, "<a>\xC3\xA9</a>"},
      {"<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>", "<a>\xC3\xA9</a>"},
      {"<?xml version='1.0' encoding='Windows-1251'?><a>\xE9</a>", "<a>\xD0\xB9</a>"},
      {"<?xml version='1.0' encoding='windows-1252'?><a>\x81</a>", "! not well-formed (invalid token)"},
      {"<?xml version='1.0' encoding='ISO-2022-JP'?><a/>", "! unknown encoding"},
  };
  for (const auto& [file, xml] : cases) EXPECT_EQ(loaded(file), xml) << file;
}

TEST_F(Files, BringBackEveryByteAndCharacter) {
  std::vector<std::string> texts = {std::string(600, 'a') + "\xE2\x82",
                                    std::string(255, '\\') + "\xE2\x82\xAC\x01",
                                    std::string(254, '&') + "\xF0\x9F\x98\x80" + std::string(600, '\x02')};
  for (const char* const odd : {"\n\t \r", " x ", "\\41", "]]>", "\xEF\xBF\xBE", "\xED\xA0\x80", "\xC0\x80",
                                "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80"}) {
    texts.emplace_back(odd);
  }
  for (int byte = 0; byte < 256; ++byte) texts.emplace_back(1, static_cast<char>(byte));
  std::mt19937 random(7);
  for (int i = 0; i < 200; ++i) {
    std::string& bytes = texts.emplace_back(random() % 40, ' ');
    for (char& c : bytes) c = static_cast<char>(random() % (i % 2 == 0 ? 256 : 0x28));
  }
  expect_comes_back(texts);
  std::string all;
  for (char32_t code = 0x20; code <= 0x10FFFF; code += code < 0x10000 ? 1 : 0xFF) {
    if ((code < 0xD800 || code > 0xDFFF) && code != 0xFFFE && code != 0xFFFF) utf8::append(all, code);
  }
  expect_comes_back({all});
  EXPECT_EQ(content(path()).find("_NodeEscape"), std::string::npos);
}

struct Broken {
  const char* xml;
  const char* why;
  int line;
  int column;
  long long offset;
};

TEST_F(Files, ThatAreBrokenSayWhere) {
  const Broken cases[] = {
      {"", "no element found", 1, 1, 0},
      {"<a>\n <b></a>", "mismatched tag", 2, 7, 10},
      {"<a/>\n<b/>", "junk after document element", 2, 1, 5},
      {"<a b='1' b='2'/>", "duplicate attribute", 1, 10, 9},
      {"<a>\n\n\x01</a>", "not well-formed (invalid token)", 3, 1, 5},
      {"<a>&x;</a>", "undefined entity", 1, 4, 3},
      {"<!DOCTYPE a SYSTEM 'x'><a>&x;</a>", "undefined entity", 1, 27, 26},
      {"<!DOCTYPE a [<!ENTITY x SYSTEM '/etc/passwd'>]><a>&x;</a>",
       "error in processing external entity reference", 1, 51, 50},
      {"<a><_NodeID/></a>", "a reserved or overlong name", 1, 4, 3},
      {"text", "syntax error", 1, 1, 0},
      {"<a>\xC3\xA9<</a>", "not well-formed (invalid token)", 1, 6, 6},
  };
  for (const auto& [xml, why, line, column, offset] : cases) {
    put(path(), xml);
    RYXmlWrapperBase tree = parse("<old>1</old>");
    for (const bool file : {false, true}) {
      EXPECT_EQ(file ? tree.load(path().c_str(), 0) : tree.SetXmlText(xml), 0) << xml;
      const RYXmlFailure failure = RYXmlWrapperBase::LastFailure();
      EXPECT_STREQ(failure.text, why) << xml;
      EXPECT_EQ(std::tie(failure.line, failure.column, failure.offset), std::tie(line, column, offset))
          << xml;
      EXPECT_EQ(text(tree), "<old>1</old>");
    }
  }
  const std::string whole = "<a _NodeID='1' b='&amp;'>t<!-- --><b>&#9;</b><![CDATA[x]]></a>";
  RYXmlWrapperBase tree = parse("<t><old><x/></old></t>");
  RYXmlWrapperBase old = at(tree, {0});
  for (std::size_t cut = 0; cut < whole.size(); ++cut)
    EXPECT_EQ(old.SetXmlText(whole.substr(0, cut).c_str()), 0) << cut;
  EXPECT_EQ(text(tree), "<t><old><x/></old></t>");
  // A text in memory is in the default code page, whatever it declares.
  EXPECT_EQ(text(parse("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA9</a>")), "<a>\xC3\xA9</a>");
  EXPECT_EQ(old.SetXmlText((" <!-- c --> " + whole + "\n").c_str()), 1);
  EXPECT_EQ(text(tree), "<t><a _NodeID=\"1\" b=\"&amp;\">tx<b>\t</b></a></t>");
  EXPECT_TRUE(old == at(tree, {0}));
  EXPECT_STREQ(RYXmlWrapperBase::LastFailure().text, "");
  EXPECT_EQ(RYXmlWrapperBase::LastFailure().offset, -1);
}

TEST_F(Files, AreBoundedHoweverHostile) {
  const std::string deep = "nested deeper than 1,024 levels";
  const std::string much = "the entities expand to too much";
  std::string laughs = "<!DOCTYPE a [<!ENTITY x0 'ha'>";
  std::string chain = "<!DOCTYPE a [<!ENTITY x0 ''>";
  for (int i = 1; i < 30000; ++i) {
    const std::string declaration = "<!ENTITY x" + std::to_string(i) + " '";
    const std::string inner = "&x" + std::to_string(i - 1) + ";";
    if (i < 12) laughs += declaration + repeat(inner, 10) + "'>";
    chain += declaration + inner + "'>";
  }
  std::string defaults = "<!DOCTYPE a [<!ATTLIST b";
  for (int i = 0; i < 2000; ++i) defaults += " a" + std::to_string(i) + " CDATA ''";
  const std::string big(200000, 'x');
  const std::pair<std::string, std::string> cases[] = {
      {repeat("<a>", 1025) + repeat("</a>", 1025), deep},
      {repeat("<a>", 100000), deep},
      {laughs + "]><a>&x11;</a>", "limit on input amplification factor (from DTD and entities) breached"},
      {"<!DOCTYPE a [<!ENTITY x '" + big + "'>]><a>" + repeat("&x;", 200) + "</a>", much},
      {"<!DOCTYPE a [<!ENTITY x '" + repeat("<b/>", 9000) + "'>]><a>" + repeat("&x;", 1000) + "</a>", much},
      {chain + "]><a>&x29999;</a>", "too many entities that name entities"},
      {defaults + ">]><a>" + repeat("<b/>", 20000) + "</a>", much},
  };
  for (const auto& [xml, why] : cases) EXPECT_EQ(loaded(xml), "! " + why) << xml.substr(0, 60);

  const std::string most = repeat("<a>", 1023) + "<a/>" + repeat("</a>", 1023);
  EXPECT_EQ(loaded(most), most);
  RYXmlWrapperBase low = at(parse("<r><m><l/></m></r>"), {0, 0});
  EXPECT_EQ(low.SetXmlText((repeat("<a>", 1023) + repeat("</a>", 1023)).c_str()), 0);
  EXPECT_EQ(low.SetXmlText((repeat("<a>", 1022) + repeat("</a>", 1022)).c_str()), 1);

  // Long tokens and many attributes take time in step with their length.
  std::string wide = "<a";
  for (int i = 0; i < 30000; ++i) wide += " a" + std::to_string(i) + "=\"\"";
  for (const std::string& xml :
       {"<a a=\"" + repeat(big, 10) + "\">" + repeat(big + "&amp;", 10) + "</a>", wide + "/>"}) {
    EXPECT_EQ(loaded("<!--" + repeat(big, 10) + "-->" + xml), xml);
  }
}

TEST_F(Files, CannotBeReadOrWrittenEverywhere) {
  const RYXmlWrapperBase tree = parse("<a/>");
  fs::create_symlink("loop", path("loop"));
  ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
  const auto refused = [&](const std::string& file, const std::string& load_why,
                           const std::string& save_why) {
    RYXmlWrapperBase node = tree;
    EXPECT_EQ(node.load(file.c_str(), 0), 0);
    EXPECT_EQ(RYXmlWrapperBase::LastFailure().text, "cannot read '" + file + "': " + load_why);
    EXPECT_TRUE(node == tree);
    EXPECT_EQ(tree.Save(file.c_str()), 0);
    EXPECT_EQ(RYXmlWrapperBase::LastFailure().text, save_why);
    EXPECT_EQ(RYXmlWrapperBase::LastFailure().line, 0);
  };
  const auto write = [](const std::string& file, const char* why) {
    return "cannot write '" + file + "': " + why;
  };
  const std::string none = "No such file or directory";
  refused(path("no/x.xml"), none, write(path("no/x.xml"), none.c_str()));
  refused("", none, write("", none.c_str()));
  refused(folder, "Is a directory", write(folder, "Is a directory"));
  refused(path("pipe"), "Invalid argument", write(path("pipe"), "Invalid argument"));
  refused(path("loop"), "Too many levels of symbolic links",
          "cannot follow the link '" + path("loop") + "': Too many levels of symbolic links");
  EXPECT_EQ(entries(), 2);

  const std::string end = std::string(320, 'n');
  EXPECT_EQ(tree.Save((path() + end).c_str()), 0);
  EXPECT_EQ(RYXmlWrapperBase::LastFailure().text, "cannot write '..." + end + "': File name too long");
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(
      dead.Save(path("y").c_str()) + dead.SetXmlText("<a/>") + tree.Save(nullptr) + dead.load(nullptr, 0), 0);
  EXPECT_EQ(tree.GetXmlText(nullptr) + parse("<a/>").SetXmlText(nullptr), 0);
  std::thread([] { EXPECT_STREQ(RYXmlWrapperBase::LastFailure().text, ""); }).join();
  EXPECT_STRNE(RYXmlWrapperBase::LastFailure().text, "");
}

TEST_F(Files, AreReplacedAsAWhole) {
  const auto mode = [](const std::string& file) {
    struct stat status {};
    stat(file.c_str(), &status);
    return status.st_mode & 07777U;
  };
  const mode_t mask = umask(027);
  EXPECT_EQ(parse("<a/>").Save(path("real").c_str()), 1);
  umask(mask);
  EXPECT_EQ(mode(path("real")), 0640U);
  chmod(path("real").c_str(), 0606);
  fs::create_directory(path("sub"));
  fs::create_symlink("../real", path("sub/link"));
  fs::create_symlink(path("sub/link"), path("link"));
  fs::create_symlink("sub/new", path("dangling"));
  EXPECT_EQ(parse("<b/>").Save(path("link").c_str()), 1);
  EXPECT_EQ(parse("<c/>").Save(path("dangling").c_str()), 1);
  EXPECT_TRUE(fs::is_symlink(path("link")) && fs::is_symlink(path("sub/link")) &&
              fs::is_symlink(path("dangling")));
  EXPECT_NE(content(path("real")).find("<b/>"), std::string::npos);
  EXPECT_NE(content(path("sub/new")).find("<c/>"), std::string::npos);
  EXPECT_EQ(mode(path("real")), 0606U);
  EXPECT_EQ(entries(), 4);

  // A write that stops half way leaves the old file and nothing else.
  auto* const former = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit low{1000, limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &low);
  EXPECT_EQ(filled({std::string(2000, 'x')}).Save(path("real").c_str()), 0);
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, former);
  EXPECT_EQ(RYXmlWrapperBase::LastFailure().text, "cannot write '" + path("real") + "': File too large");
  EXPECT_NE(content(path("real")).find("<b/>"), std::string::npos);
  EXPECT_EQ(entries(), 4);
}

TEST_F(Files, AreUtf8InEveryCodePage) {
  for (const int page : {0, 1249, 1259, 437, 65000, -1})
    EXPECT_EQ(RYXmlWrapperBase::SetDefaultCodePage(page), 0) << page;
  struct Page {
    int number;
    std::string bytes;
    std::string utf8;
  };
  const Page pages[] = {
      {1250, "\xB9", "\xC4\x85"},        {1251, "\xE9", "\xD0\xB9"},    {1252, "\x80", "\xE2\x82\xAC"},
      {1253, "\xF0", "\xCF\x80"},        {1254, "\xFD", "\xC4\xB1"},    {1255, "\xE0", "\xD7\x90"},
      {1256, "\xC7", "\xD8\xA7"},        {1257, "\xE0", "\xC4\x85"},    {1258, "a\xCC", "a\xCC\x80"},
      {932, "\x83\x5C", "\xE3\x82\xBD"}, {936, "\xA6\xD0", "\xCF\x80"}, {949, "\xB0\xA1", "\xEA\xB0\x80"},
      {950, "\xA4\xE5", "\xE6\x96\x87"}, {28591, "\x80", "\xC2\x80"},
  };
  for (const auto& [number, bytes, in_utf8] : pages) {
    ASSERT_EQ(RYXmlWrapperBase::SetDefaultCodePage(number), 1) << number;
    EXPECT_EQ(attribute(saved_and_loaded(parse("<a a='" + bytes + "'/>"))), bytes) << number;
    EXPECT_NE(content(path()).find("a=\"" + in_utf8 + "\""), std::string::npos) << number;
    EXPECT_EQ(loaded("<a>&#x1F600;" + in_utf8 + "</a>"), "<a>&amp;#128512;" + bytes + "</a>") << number;

    std::string all;
    for (unsigned high = 0; high < 256; ++high) {
      for (unsigned low = number < 1000 ? 0 : 255; low < 256; ++low) {
        all += {static_cast<char>(high), static_cast<char>(low)};
      }
    }
    ASSERT_NO_FATAL_FAILURE(expect_comes_back({all})) << number;
  }
  RYXmlWrapperBase node = parse("<a/>");
  RYXmlWrapperBase::SetDefaultCodePage(932);
  EXPECT_EQ(RYXmlWrapperBase::SetDefaultCodePage(1), 0);
  EXPECT_EQ(attribute(parse("<a _NodeEscape='1' a='\x83\x5C\\5C'/>")), "\x83\x5C\x5C");
  EXPECT_EQ(node.SetXmlText("<a>\x83</a>"), 0);
  EXPECT_STREQ(RYXmlWrapperBase::LastFailure().text,
               "the text has bytes that are no character of the code page");
  RYXmlWrapperBase::SetDefaultCodePage(1252);
  EXPECT_EQ(tag(parse("<\xE9/>")), "\xC3\xA9");
  EXPECT_EQ(loaded("<\xCF\x80/>"), "");  // a name stays UTF-8, and the page has no way to write this one
}

}  // namespace
