// Any bytes and any numbers in attributes and texts: the same after a save and a load.
//
// With RYTREE_FULL_TESTS set, there are 10,000,000 numbers under each locale, and each pair of bytes and each character is
// tried by itself under every code page.
#include <rytree_host/utf8.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <clocale>
#include <cmath>
#include <limits>
#include <random>
#include <set>

#include "failure.h"
#include "scratch_folder.h"
#include "system/process.h"
#include "tree_text.h"

namespace {

using Node = RYXmlWrapperBase;

const bool full = std::getenv("RYTREE_FULL_TESTS") != nullptr;
constexpr int kPages[] = {65001, 1250, 1251, 1252, 1253, 1254, 1255, 1256,
                          1257,  1258, 932,  936,  949,  950,  28591};

class AnyValue : public FolderTest {
 protected:
  ~AnyValue() override { Node::SetDefaultCodePage(65001); }

  Node saved_and_loaded(const Node& tree) const {
    Node back;
    std::filesystem::remove(path);
    EXPECT_EQ(tree.Save(path.c_str()), 1) << failure();
    EXPECT_EQ(back.load(path.c_str(), 0), 1) << failure();
    return back;
  }
  /// Each text is the same in every place it can have, attribute and text of a branch and of a leaf, after a save and
  /// as XML text.
  void expect_comes_back(const std::vector<std::string>& texts) const {
    Node tree, branch, leaf;
    tree.CreateNew(0, nullptr);
    for (const std::string& bytes : texts) {
      CString all{std::string_view(bytes)};
      tree.AddNode(branch, "branch", -1), branch.AddNode(leaf, "leaf", -1);
      for (Node* const node : {&branch, &leaf})
        node->SetPropertyValue("a", all), node->NodeValue(all, 0, 1, nullptr);
    }
    for (const Node& back : {saved_and_loaded(tree), parse(text(tree))}) {
      back.FirstChild(branch);
      for (const std::string& bytes : texts) {
        branch.FirstChild(leaf);
        for (Node* const node : {&branch, &leaf}) {
          CString read;
          node->GetPropertyValue("a", read);
          ASSERT_EQ(read.View(), bytes);
          ASSERT_EQ(own_text(*node), bytes);
        }
        branch.NextSibling(branch);
      }
    }
  }

  const std::string path = (folder / "x.xml").string();
};

/// All pairs of bytes beyond ASCII and others, with blanks between.
std::string pairs() {
  std::string all;
  for (unsigned pair = 0x8001; pair < 0x10000; ++pair)
    all += {static_cast<char>(pair >> 8), static_cast<char>(pair % 256 != 0 ? pair : 1), ' '};
  return all;
}

TEST_F(AnyValue, IsTheSameBytes) {
  std::vector<std::string> texts = {std::string(600, 'a') + "\xE2\x82",
                                    std::string(255, '\\') + "\xE2\x82\xAC\x01",
                                    std::string(254, '&') + "\xF0\x9F\x98\x80" + std::string(600, '\x02')};
  std::istringstream odd(
      "\n\t \r| x "
      "|\\41|]]>|\xEF\xBF\xBE|\xED\xA0\x80|\xC0\x80|\xE0\x80\x80|\xF0\x80\x80\x80|\xF4\x90\x80\x80");
  for (std::string one; std::getline(odd, one, '|');) texts.push_back(one);
  for (int byte = 0; byte < 256; ++byte) texts.emplace_back(1, static_cast<char>(byte));
  std::mt19937 random(7);
  for (int i = 0; i < (full ? 20000 : 200); ++i) {
    std::string& bytes = texts.emplace_back(random() % 40, ' ');
    for (char& c : bytes) c = static_cast<char>(random() % (i % 2 == 0 ? 256 : 0x28));
  }
  if (full) {
    for (unsigned pair = 0; pair < 0x10000; ++pair)
      texts.push_back({static_cast<char>(pair >> 8), static_cast<char>(pair)});
  }
  for (const int page : kPages) {
    SCOPED_TRACE(page);
    ASSERT_EQ(Node::SetDefaultCodePage(page), 1);
    ASSERT_NO_FATAL_FAILURE(expect_comes_back(texts));
    if (page > 1000) continue;
    ASSERT_NO_FATAL_FAILURE(expect_comes_back({pairs()}));
  }
}

/// The characters in UTF-8 text.
std::set<char32_t> characters(const std::string& utf8) {
  std::set<char32_t> all;
  for (const char* at = utf8.data(); at != utf8.data() + utf8.size();) all.insert(utf8::next(at));
  return all;
}

TEST_F(AnyValue, IsTheSameCharacters) {
  std::vector<char32_t> codes;
  for (char32_t code = 0x20; code <= 0x10FFFF; ++code) {
    if ((code < 0xD800 || code > 0xDFFF) && code != 0xFFFE && code != 0xFFFF) codes.push_back(code);
  }
  std::string all;
  for (const char32_t code : codes) utf8::append(all, code);
  expect_comes_back({all});
  EXPECT_EQ(content(path).find("_NodeEscape"), std::string::npos);

  // A character is either in the page, and so among those that its bytes are saved as, or refused.
  for (const int page : kPages) {
    if (page == 65001) continue;
    ASSERT_EQ(Node::SetDefaultCodePage(page), 1);
    Node tree = parse("<a/>");
    CString bytes(pairs().c_str());
    tree.NodeValue(bytes, 0, 1, nullptr);
    ASSERT_EQ(tree.Save(path.c_str()), 1);
    const std::set<char32_t> held = characters(content(path));
    std::string taken, in_page;
    for (std::size_t i = 0x60; i < codes.size(); i += i >= 0x10000 ? 4999 : full ? 1 : 23) {
      const std::string one = "&#" + std::to_string(codes[i]) + ";";
      const bool done = tree.SetXmlText(("<a b='" + one + "'>" + one + "</a>").c_str()) != 0;
      ASSERT_EQ(done, held.count(codes[i]) != 0) << page << " " << one;
      if (!done) continue;
      tree.GetPropertyValue("b", bytes);
      ASSERT_EQ(bytes.View(), own_text(tree)) << page << " " << one;
      utf8::append(taken, codes[i]), taken += ' ';
      in_page += own_text(tree) + ' ';
    }
    bytes = in_page.c_str();
    tree.NodeValue(bytes, 0, 1, nullptr);
    ASSERT_EQ(tree.Save(path.c_str()), 1);
    ASSERT_NE(content(path).find('>' + taken + '<'), std::string::npos) << page;
  }
}

/// All signs and exponents with the least and greatest fractions; then anything.
std::uint64_t double_bits(std::size_t number, std::mt19937_64& random) {
  constexpr std::uint64_t kFractions[] = {0, 1, (1ULL << 52) - 1};
  return number < std::size_t{3} * 4096 ? (number / 3) << 52 | kFractions[number % 3] : random();
}

int edge_int(std::size_t number, std::mt19937_64& random) {
  if (number >= std::size_t{33} * 6) return static_cast<int>(random());
  const long long power = (1LL << number / 6) + static_cast<int>(number % 3) - 1;
  return static_cast<int>(std::clamp(number % 2 == 0 ? power : -power, 0LL + INT_MIN, 0LL + INT_MAX));
}

/// A NaN keeps its sign alone.
std::uint64_t kept(std::uint64_t bits) {
  return std::isnan(std::bit_cast<double>(bits)) ? (bits >> 63) << 63 | 0x7FF8ULL << 48 : bits;
}

TEST_F(AnyValue, IsTheSameNumberInEveryLocale) {
  constexpr std::size_t kAtOnce = 20000;
  std::mt19937_64 random(11);
  set_environment("LOCPATH", folder.string());
  for (const std::string country : {"", "de_DE", "ps_AF"}) {
    const std::string locale = country.empty() ? "C" : country + ".UTF-8";
    if (!country.empty()) {
      const std::string source = (folder / country).string();
      std::ofstream(source) << "LC_NUMERIC\ncopy \"" << country << "\"\nEND LC_NUMERIC\n";
      std::system(("localedef -c -f UTF-8 -i " + source + " " + source + ".UTF-8 2>/dev/null").c_str());
    }
    if (std::setlocale(LC_NUMERIC, locale.c_str()) == nullptr) {
      std::printf("skipped: there is no locale %s\n", locale.c_str());
      continue;
    }
    EXPECT_EQ(*std::localeconv()->decimal_point == '.', country.empty());
    const std::size_t count = full ? 10'000'000 : 40'000;
    for (std::size_t done = 0; done < count; done += kAtOnce) {
      Node tree, node, leaf;
      tree.CreateNew(0, nullptr);
      std::vector<std::pair<std::uint64_t, int>> numbers;
      CArray<double, double> array;
      for (std::size_t i = 0; i < kAtOnce; ++i) {
        const auto [bits, integer] =
            numbers.emplace_back(double_bits(done + i, random), edge_int(done + i, random));
        auto real = std::bit_cast<double>(bits);
        array.Add(real);
        tree.AddNode(node, "n", integer);
        node.SetPropertyValue("int", integer);
        node.SetPropertyValue("double", real);
        node.NodeValue(real, 0);
        int text = integer;
        node.AddNode(leaf, "n", -1), leaf.NodeValue(text, 0);
      }
      tree.NodeValue(array, 0);
      tree = saved_and_loaded(tree);
      ASSERT_EQ(tree.NodeValue(array, 1), 1);
      ASSERT_EQ(array.GetSize(), std::ssize(numbers));
      tree.FirstChild(node);
      for (std::size_t i = 0; i < kAtOnce; ++i, node.NextSibling(node)) {
        const auto [bits, integer] = numbers[i];
        double reals[] = {0, 0, array[static_cast<int>(i)]};
        int ints[] = {0, 0, -1};
        node.FirstChild(leaf);
        node.GetPropertyValue("double", reals[0]), node.NodeValue(reals[1], 1);
        node.GetPropertyValue("int", ints[0]), leaf.NodeValue(ints[1], 1), node.GetID(ints[2]);
        for (const double real : reals) ASSERT_EQ(std::bit_cast<std::uint64_t>(real), kept(bits)) << real;
        for (const int read : ints) ASSERT_EQ(read, integer);
      }
    }
  }
}

}  // namespace
