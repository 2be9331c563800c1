// Narrow strings under code pages: the characters that comparisons, searches and cuts see.
#include "rytree_host/code_page.h"

#include <rytree_Utils.h>
#include <rytree_host/Kelp60.h>
#include <rytree_host/ryUtils.h>

#include <vector>

#include "failure.h"
#include "scratch_folder.h"
#include "tree_text.h"

namespace {

constexpr int kPages[] = {1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 932, 936, 949, 950, 28591};

struct CodePages : FolderTest {
  static void use(int page) { ASSERT_EQ(rytree_set_default_code_page(page), 1) << page; }
  ~CodePages() override { rytree_set_default_code_page(65001); }
};

std::string tokens(const char* text, char separator, char quote = 0) {
  CStringArray found;
  ryutilsGetTokens(text, &found, separator, nullptr, quote, 0);
  return listed(found);
}

std::string changed(const char* text, void (*change)(CString&)) {
  CString string(text);
  change(string);
  return std::string(string.View());
}

std::string copied(const char* text, int size) {
  char buffer[16];
  return rytree_host::lstrcpynA(buffer, text, size);
}

std::string auto_label(const char* text) {
  CString label;
  int state = 0;
  int number = 0;
  EXPECT_EQ(vctree_parse_auto_support_string(text, state, label, number), 1);
  return std::string(label.View());
}

template <class... Place>
std::string places(Place... found) {
  return ((std::to_string(found) + ' ') + ...);
}

TEST_F(CodePages, TellTheCharactersOfStrings) {
  using S = CString;
  const Rows<int, std::string, std::string (*)()> cases = {
      {932, "-1 -1 -1 ",
       [] { return places(S("\x83|").Find('|'), S("\x83|").Find("|"), S("\x83|").Find('|', 1)); }},
      {932, "3 3 ", [] { return places(S("\x83|a|").Find('|'), S("\x83|a|\x83|").ReverseFind('|')); }},
      {932, "-1 1 1 ",
       [] { return places(S("\x83|").Find("\x83"), S("a\x83").Find("\x83"), S("a\x83").Find('\x83')); }},
      {932, "2 2 ",
       [] { return places(S("\x83\x83\x83\x83").Find("\x83\x83", 1), S("\x81\x81|").Find('|', 1)); }},
      {932, "-1 1 ",
       [] {
         std::string stretch;
         for (int i = 0; i < 40; ++i) stretch += "|\x83";
         return places(S(("\x83" + stretch).c_str()).Find(stretch.c_str()),
                       S(("a" + stretch).c_str()).Find(stretch.c_str()));
       }},
      {932, "|a a ", [] { return std::string(_mbsinc("\x83||a")) + ' ' + _mbsinc("aa") + ' '; }},
      {932, "[`\x83`]", [] { return tokens("`\x83`", '|', '`'); }},
      {932, "\x83|a/", [] { return changed("\x83|a|", [](S& s) { s.Replace('|', '/'); }); }},
      {932, "\x83|a--", [] { return changed("\x83|a|", [](S& s) { s.Replace("|", "--"); }); }},
      {932, "\x83|\x61", [] { return changed("\x83|a|", [](S& s) { s.Remove('|'); }); }},
      {932, "\x83|", [] { return changed("||\x83|||", [](S& s) { s.TrimLeft('|').TrimRight('|'); }); }},
      {932, "\x83|\x83}",
       [] { return changed("\x83|\x83}", [](S& s) { s.TrimRight("}\x83||").TrimLeft("|"); }); }},
      {932, "\x83\x61Z\x82\x60\x87\x90",
       [] { return changed("\x83\x61z\x82\x81\x87\x90", [](S& s) { s.MakeUpper(); }); }},
      {932, "a__", [] { return changed("a\x83\x41", [](S& s) { ryuMakeValidCName(&s, 0); }); }},
      {932, "[1][\x83|`\x83`|`][3]", [] { return tokens("1|\x83|`\x83`|`|3", '|', '`'); }},
      {932, "a\x83\x41\x83\x41",
       [] { return copied("a\x83\x41\x83\x41", 5) + copied("\x83\x41", 2) + copied("\x83\x41", 3); }},
      {932, "\x83|\x61\x83\x7D", [] { return auto_label("1|\x83||2") + auto_label("1|a\x83\x7D|2"); }},
      {1252, "\xC9\x9F\xB5\x81", [] { return changed("\xE9\xFF\xB5\x81", [](S& s) { s.MakeUpper(); }); }},
      {1252, "\xE9", [] { return changed("\xC9\x9F", [](S& s) { s.MakeLower().TrimRight('\xFF'); }); }},
      {65001, "-1 2 0 ",
       [] { return places(S("é").Find('\xA9'), S("é\xA9").Find('\xA9'), S("é").Find("é")); }},
      {65001, "è", [] { return changed("èé", [](S& s) { s.TrimRight("é").TrimLeft('\xC3'); }); }},
      {65001, "[é][x]", [] { return tokens("é\xA9x", '\xA9'); }},
      {65001, "n€\x82\x82",
       [] { return copied("né", 3) + copied("€", 3) + copied("€", 4) + copied("\x82\x82\x82", 3); }},
  };
  for (const auto& [page, wanted, given] : cases) {
    use(page);
    EXPECT_EQ(given(), wanted);
  }
}

TEST_F(CodePages, FoldAsTheirCharactersDo) {
  const Rows<int, const char*, const char*, bool> cases = {{932, "\x83\x41", "\x83\x61", false},
                                                           {932, "\x83\x41\x61", "\x83\x41\x41", true},
                                                           {932, "\x82\x60", "\x82\x81", true},
                                                           {932, "\x87\x90", "\x87\x70", false},
                                                           {932, "\x83", "\x83\x41", false},
                                                           {1252, "\xC9", "\xE9", true},
                                                           {1252, "\xC3\xA9", "\xC3\x89", false},
                                                           {1251, "\xC6", "\xE6", true},
                                                           {1254, "\xDD", "i", false},
                                                           {1254, "I", "\xFD", false},
                                                           {65001, "\xC3\xA9", "\xC3\x89", true}};
  for (const auto& [page, left, right, equal] : cases) {
    use(page);
    EXPECT_EQ(_mbsicmp(left, right) == 0, equal);
    EXPECT_EQ(kelp_text_match(left, right, 0, 0, 0) != 0, equal);
    EXPECT_EQ(kelp_text_match((std::string("*") + left).c_str(), right, 0, 0, 0) != 0, equal);
  }
  use(932);
  EXPECT_TRUE(kelp_text_match("?", "\x83\x41", 1, 0, 0));
  EXPECT_FALSE(kelp_text_match("*A", "\x83\x41", 1, 0, 0));
}

// Each character of a page by itself and beside others: the page and UTF-8 must agree on what is equal.
TEST_F(CodePages, AgreeWithUtf8) {
  for (const int number : kPages) {
    use(number);
    const CodePage& page = *CodePage::Default();
    std::vector<std::string> texts;
    std::vector<std::string> in_utf8;
    const auto add = [&](const std::string& text) {
      std::string converted;
      std::string back;
      if (page.ToUtf8(text, converted) != text.size()) return;
      EXPECT_EQ(page.FromUtf8(converted, back), converted.size());
      EXPECT_EQ(back, text);
      texts.push_back(text);
      in_utf8.push_back(converted);
    };
    for (unsigned first = 1; first < 256; ++first) {
      add({static_cast<char>(first)});
      for (unsigned second = 0x40; first >= 0x80 && second < 256; second += 61) {
        add({static_cast<char>(first), static_cast<char>(second)});
      }
    }
    ASSERT_GT(texts.size(), 200U);
    const auto folded_pairs = [](const std::vector<std::string>& all) {
      std::vector<std::pair<std::size_t, std::size_t>> pairs;
      for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t j = i < 128 ? 0 : i % 7; j < all.size(); j += i < 128 ? 1 : 7) {
          if (_mbsicmp(all[i].c_str(), all[j].c_str()) == 0) pairs.emplace_back(i, j);
        }
      }
      return pairs;
    };
    const auto in_page = folded_pairs(texts);
    for (const auto& [i, j] : in_page) EXPECT_EQ(case_key(texts[i].c_str()), case_key(texts[j].c_str()));
    use(65001);
    EXPECT_EQ(in_page, folded_pairs(in_utf8)) << number;
  }
}

TEST_F(CodePages, HoldForValuesOfTrees) {
  use(932);
  RYXmlWrapperBase tree = parse("<R><A DataID='1'/><B DataID='2'/></R>");
  CString katakana("\x83\x41");
  at(tree, {0}).NodeValue(katakana, 0, 1, nullptr);
  HostIntArray ids;
  HostStringArray values;
  ids.array().Add(1);
  RYXmlWrapperBase saved;
  tree.Clone(saved, 0);
  at(saved, {0}).CheckSetValue(0, "\x83\x61", 0);  // another letter, not the other case of the same
  EXPECT_EQ(rytree_remove_unchange_nodes_by_id(&saved, &tree, nullptr, nullptr), 1);
  EXPECT_EQ(text(tree), "<R><A DataID=\"1\">\x83\x41</A></R>");

  // A decoration whose text ends in the byte of a closing brace.
  values.array().Add("::{Auto=1|\x83}|2}value");
  EXPECT_EQ(rytree_set_values_by_ids(&tree, &ids, &values, 0, nullptr, 0, nullptr, nullptr, 0), 1);
  EXPECT_EQ(text(at(tree, {0})), "<A DataID=\"1\" Auto=\"1|\x83}|2\">value</A>");

  RYXmlWrapperBase branch = parse("<P/>");
  EXPECT_EQ(rytree_key_value_pairs_str_to_branch(&branch, "a|\x83|^\x83||\x83^^c|\x83\x7E", '|', '^'), 1);
  EXPECT_EQ(text(branch), "<P><a>\x83|</a><\x83|>\x83^</\x83|><c>\x83\x7E</c></P>");
  CString pairs;
  EXPECT_EQ(rytree_branch_to_key_value_pairs_str(&branch, &pairs, '|', '^'), 1);
  EXPECT_EQ(pairs, "a|\x83|^\x83||\x83^^c|\x83\x7E^");
}

// Every character of a page that can be in a name.
TEST_F(CodePages, HoldForNames) {
  const std::string file = (folder / "names.xml").string();
  for (const int number : kPages) {
    use(number);
    RYXmlWrapperBase tree = parse("<R/>"), node, found;
    std::string all;
    for (unsigned bytes = 0x80; bytes < 0x10000; bytes += bytes < 0x100 ? 1 : 101) {
      if (bytes % 256 == 0) continue;
      std::string whole = "n";
      if (bytes > 0xFF) whole += static_cast<char>(bytes >> 8U);
      whole += static_cast<char>(bytes & 0xFFU);
      const char* const name = whole.c_str();
      if (tree.AddNode(node, name, -1) == 0) continue;
      all += "<" + whole + " " + whole + "=\"8\"/>";
      int value = 0;
      EXPECT_EQ(node.SetPropertyValue(name, 7), 1);
      EXPECT_EQ(node.SetPropertyValue(RYPropertyName(name), CString("8")), 1);
      EXPECT_EQ(node.GetPropertyValue(name, value) * value, 8);
      EXPECT_EQ(node.HasTagName(RYPropertyName(name)), 1);
      EXPECT_EQ(tree.FindNodeByAttribute(found, name, 8, 0), 1);
      EXPECT_EQ(tree.FindChild(name, found, 0), 1);
      EXPECT_TRUE(found == node);
    }
    EXPECT_GT(tree.GetNodeCount(), 20) << number;
    EXPECT_EQ(text(tree), "<R>" + all + "</R>");
    EXPECT_EQ(tree.Save(file.c_str()), 1);
    EXPECT_EQ(found.load(file.c_str(), 0), 1) << failure();
    EXPECT_EQ(text(found), text(tree));
    EXPECT_EQ(text(parse(text(tree))), text(tree));
  }
}

TEST_F(CodePages, RefuseWhatTheyLack) {
  RYXmlWrapperBase pi = parse("<R><\xCF\x80 \xCF\x81=''/></R>");
  use(1252);
  CString kept("kept");
  EXPECT_EQ(rytree_move_node(&pi, 0, -1, 0, nullptr), 1);
  EXPECT_EQ(at(pi, {0}).GetTagName(kept) + at(pi, {0}).GetPropertyAt(0, kept, kept), 0);
  EXPECT_EQ(pi.GetXmlText(&kept), 0);
  EXPECT_STREQ(RYXmlWrapperBase::LastFailure().text, "U+03C0 is not in code page 1252");
  EXPECT_EQ(kept, "kept");
  RYXmlWrapperBase none, old = parse("<old/>");
  EXPECT_EQ(pi.AddNode(none, "\x81", -1), 0);
  EXPECT_EQ(pi.SetPropertyValue("a\x81", 1), 0);
  EXPECT_EQ(pi.FindChild("\x81", none, 0), 0);

  const Rows<int, const char*, const char*> cases = {
      {1252, "<a>\n\xE9&#960;</a>", "U+03C0 is not in code page 1252 2:2 5"},
      {1252, "<a>\xE9\n <b c='\xE9' d='&#x3C0;'/></a>", "U+03C0 is not in code page 1252 2:2 6"},
      {1252, "<a>\n\xE9\x81</a>", "no character of code page 1252 2:2 5"},
      {932, "<a>\x83\x5C\x83</a>", "no character of code page 932 1:5 5"},
      {932, "<a>\x83\x5C</b>", "mismatched tag 1:7 7"}};
  for (const auto& [page, xml, why] : cases) {
    use(page);
    EXPECT_EQ(old.SetXmlText(xml), 0);
    EXPECT_EQ(failure(), why);
    EXPECT_EQ(text(old), "<old/>");
  }
}

}  // namespace
