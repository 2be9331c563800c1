// Files that are made to do harm, or damaged. Each is taken or refused for a reason, in time in step with its size and
// within a bound on memory, and none makes the node class open another file.
//
// With RYTREE_FULL_TESTS set, files are 25 times as large, and documents are cut at every byte.
#include <fcntl.h>
#include <iconv.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <ctime>

#include "failing_allocations.h"
#include "scratch_folder.h"
#include "tree_text.h"

namespace {

using namespace std::string_literals;
using Node = RYXmlWrapperBase;

const bool full = std::getenv("RYTREE_FULL_TESTS") != nullptr;

/// The piece so many times, with numbers from 0 on for "~" and from 1 on for "^".
std::string each(int count, const std::string& piece) {
  std::string all;
  for (int i = 0; i < count; ++i) {
    for (const char c : piece) c == '~' || c == '^' ? all += std::to_string(c == '~' ? i : i + 1) : all += c;
  }
  return all;
}

/// "ENCODING|text" in that encoding, with a byte order mark if that is usual; a text without such a start as it is.
std::string encoded(std::string text) {
  const std::size_t name = text.substr(0, 40).find('|');
  if (name == text.npos) return text;
  const iconv_t handle = iconv_open(text.substr(0, name).c_str(), "UTF-8");
  std::string all(4 * text.size(), '\0');
  char* from = text.data() + name + 1;
  char* to = all.data();
  std::size_t left = text.size() - name - 1, room = all.size();
  EXPECT_EQ(iconv(handle, &from, &left, &to, &room), 0U) << text.substr(0, name);
  iconv_close(handle);
  return all.substr(0, all.size() - room);
}

class HostileFiles : public FolderTest {
 protected:
  struct Load {
    std::string why;  // it is refused; "" if it is taken
    double bytes = 0;
    double seconds = 0;  // of the processor
    double most = 0;     // bytes of memory in use
  };

  void write(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }
  Load load(const std::string& bytes) const { return write(bytes), load(); }
  Load load() const {
    Node tree;
    FailingAllocations::count_bytes();
    const std::clock_t start = std::clock();
    const int done = tree.load(path.c_str(), 0);
    const auto seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    const auto most = static_cast<double>(FailingAllocations::most_bytes());
    CString fault;
    EXPECT_EQ(tree.IsTreeSound(&fault), done) << fault.GetString();
    return {done != 0 ? "" : Node::LastFailure().text, static_cast<double>(std::filesystem::file_size(path)),
            seconds, most};
  }

  const std::string path = folder / "x.xml";
};

TEST_F(HostileFiles, TakeTimeAndMemoryInStepWithTheirSize) {
  constexpr double kMostMemory = 60;         // for each byte of the file
  constexpr double kFreeMemory = 128 << 20;  // beside that
  constexpr double kLeastTime = 0.02;        // in seconds, too short to compare
  constexpr double kMostTime = 12;           // of a file four times as large; a square would be 16
  const std::string levels = each(1023, "<b>") + "x" + each(1023, "</b>"), big(10000, 'x');
  const std::string laughs = "<!DOCTYPE a [<!ENTITY x0 'ha'>" + each(40, "<!ENTITY x^ '&x~;&x~;'>");
  const std::string defaults = "<!DOCTYPE a [<!ATTLIST b" + each(3000, " a~ CDATA 'x'") + ">]><a>";
  const auto large_entity = [](const std::string& text) {
    return "<!DOCTYPE a [<!ENTITY x '" + text + "'>]><a>";
  };
  const std::string much = "the entities expand to too much", token = "not well-formed (invalid token)";
  const std::string amplified = "limit on input amplification factor (from DTD and entities) breached";
  using R = Row<const char*, int, std::string, std::string, std::string, std::string>;
  const Rows cases = {
      R{"attributes", 10000, "<a", " a~=''", "/>", ""},
      R{"attributes with long names", 4000, "<a", " a234567890123456789012345678901234567890~='~'", "/>", ""},
      R{"attributes with long values", 10, "<a", " a~='" + big + "'", "/>", ""},
      R{"attributes, one twice", 10000, "<a b=''", " a~=''", " b=''/>", "duplicate attribute"},
      R{"attributes under a DTD elsewhere", 5000, "<!DOCTYPE a SYSTEM 'x'><a", " a~=''", "/>", ""},
      R{"blanks in a tag", 100000, "<a", " \n", "/>", ""},
      R{"children", 20000, "<a>", "<b/>", "</a>", ""},
      R{"children with attributes", 1000, "<a>", "<b a='' b='' c='' d='' e='' f='' g='' h=''/>", "</a>", ""},
      R{"children with names of their own", 10000, "<a>", "<b~/>", "</a>", ""},
      R{"children between texts", 10000, "<a>", "x<b/>", "</a>", ""},
      R{"children between kept blanks", 10000, "<a xml:space='preserve'>", " <b/>", "</a>", ""},
      R{"children, the last not closed", 10000, "<a>", "<b/>", "<b></a>", "mismatched tag"},
      R{"deep branches", 20, "<a>", levels, "</a>", ""},
      R{"levels", 20000, "", "<a>", "", "nested deeper than 1,024 levels"},
      R{"long text", 20, "<a>", big, "</a>", ""},
      R{"long name", 10, "<a", big, "/>", ""},
      R{"long value", 20, "<a b='", big, "'/>", ""},
      R{"long value without end", 20, "<a b='", big, "", "unclosed token"},
      R{"long comment", 20, "<!--", big, "--><a/>", ""},
      R{"long instruction", 20, "<?p ", big, "?><a/>", ""},
      R{"brackets", 50000, "<a>", "]", "</a>", ""},
      R{"references", 30000, "<a>", "&amp;&#33;", "</a>", ""},
      R{"references in a value", 30000, "<a b='", "&amp;&#33;\n", "'/>", ""},
      R{"escapes", 30000, "<a _NodeEscape='1'>", "\\01", "</a>", ""},
      R{"stretches of CDATA", 10000, "<a>", "<![CDATA[x]]>", "</a>", ""},
      R{"comments", 10000, "<a>", "<!---->x", "</a>", ""},
      R{"entities", 5000, "<!DOCTYPE a [", "<!ENTITY x~ '~'>", "]><a>&x0;</a>", ""},
      R{"entities used", 5000, large_entity("x"), "&x;", "</a>", ""},
      R{"entities in values", 3000, "<!DOCTYPE a SYSTEM 'x' [<!ENTITY x 'x'>]><a>", "<b c='&x;'/>", "</a>",
        ""},
      R{"entities that name others", 5000, "<!DOCTYPE a [<!ENTITY x0 ''>", "<!ENTITY x^ '&x~;'>", "]><a/>",
        "too many entities that name entities"},
      R{"entity in itself", 5000, large_entity("&x;"), "x", "&x;</a>", "recursive entity reference"},
      R{"bomb of doubling entities", 20, laughs + "]><a>", "&x40;", "</a>", amplified},
      R{"bomb of doubling entities in a value", 20, laughs + "]><a b='", "&x40;", "'/>", amplified},
      R{"bomb of one large entity", 2000, large_entity(each(20, big)), "&x;", "</a>", much},
      R{"bomb of elements in a long file", 20, large_entity(each(10000, "<b/>")) + "<!--", big,
        "-->" + each(5000, "&x;") + "</a>", much},
      R{"bomb of default attributes", 3000, defaults, "<b/>", "</a>", much},
      R{"bomb of parameter entities", 5000, "<!DOCTYPE a [<!ENTITY % x0 'ha'>",
        "<!ENTITY % x^ '&#37;x~;&#37;x~;'>%x^;", "]><a/>", ""},
      R{"bad UTF-8 in the end", 20, "<a>", big, "\xC3</a>", token},
      R{"NUL in the end", 20, "<a>", big, "\0</a>"s, token},
      R{"UTF-16", 5000, "UTF-16|<a>", "<b>\u00E9</b>", "</a>", ""},
      R{"UTF-16, cut", 5000, "UTF-16|<a>", "<b>\u00E9</b>", "</a", "unclosed token"},
      R{"UTF-32", 20, "UTF-32|<a>", big, "</a>", token},
      R{"GB18030", 5000, "GB18030|<?xml version='1.0' encoding='GB18030'?><a>", "<b>\u00E9</b>", "</a>", ""},
  };
  for (const auto& [name, count, head, piece, tail, why] : cases) {
    const int size = full ? 25 * count : count;
    Load small, large;
    for (int attempt = 0; attempt < 3; ++attempt) {
      small = load(encoded(head + each(size, piece) + tail));
      large = load(encoded(head + each(4 * size, piece) + tail));
      if (large.seconds <= kMostTime * small.seconds + kLeastTime) break;
    }
    std::printf("%-36s %9.3f MB %9.2f ms, a quarter of it %9.2f ms, %9.2f MB of memory (%.1f a byte): %s\n",
                name, 1e-6 * large.bytes, 1e3 * large.seconds, 1e3 * small.seconds, 1e-6 * large.most,
                large.most / large.bytes, why.empty() ? "taken" : why.c_str());
    EXPECT_EQ(small.why, why);
    EXPECT_EQ(large.why, why);
    EXPECT_LE(large.seconds, kMostTime * small.seconds + kLeastTime);
    EXPECT_LE(large.most, kFreeMemory + kMostMemory * large.bytes);
  }
}

TEST_F(HostileFiles, OpenNoOtherFile) {
  const std::string secret = folder / "secret";
  std::ofstream(secret) << "<!ENTITY s 'SECRET'>SECRET";
  const int watch = inotify_init1(IN_NONBLOCK);
  ASSERT_GE(inotify_add_watch(watch, secret.c_str(), IN_ALL_EVENTS), 0);
  const auto touched = [watch] {
    char events[4096];
    return read(watch, events, sizeof events) > 0;
  };
  EXPECT_EQ(content(secret).size(), 26U);
  ASSERT_TRUE(touched()) << "the watch does not work";
  std::filesystem::current_path(folder);
  const auto cases = rows<2>(R"(
      <!DOCTYPE a SYSTEM 'FILE'><a/> |
      <!DOCTYPE a PUBLIC 'p' 'FILE'><a/> |
      <!DOCTYPE a SYSTEM 'FILE'><a>&s;</a> | undefined entity
      <?xml version='1.0' standalone='no'?><!DOCTYPE a SYSTEM 'FILE'><a b='&s;'/> | undefined entity
      <!DOCTYPE a [<!ENTITY x SYSTEM 'FILE'>]><a/> |
      <!DOCTYPE a [<!ENTITY x SYSTEM 'FILE'>]><a>&x;</a> | error in processing external entity reference
      <!DOCTYPE a [<!ENTITY x PUBLIC 'p' 'FILE'>]><a>&x;</a> | error in processing external entity reference
      <!DOCTYPE a [<!ENTITY x SYSTEM 'FILE'><!ENTITY y '&x;'>]><a>&y;</a> | error in processing external entity reference
      <!DOCTYPE a [<!ENTITY x SYSTEM 'FILE'>]><a b='&x;'/> | reference to external entity in attribute
      <!DOCTYPE a [<!NOTATION n SYSTEM 'n'><!ENTITY x SYSTEM 'FILE' NDATA n>]><a b='x'/> |
      <!DOCTYPE a [<!ENTITY % x SYSTEM 'FILE'>%x;]><a/> |
      <!DOCTYPE a [<!ENTITY % x SYSTEM 'FILE'>%x;]><a>&s;</a> | undefined entity
      <?xml-stylesheet href='FILE'?><a/> |
      <a xmlns:xi='http://www.w3.org/2001/XInclude'><xi:include href='FILE' parse='text'/></a> |
      <a xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:schemaLocation='x FILE'/> |)");
  for (const std::string& name : {secret, "file://" + secret, "secret"s, "./secret"s}) {
    for (auto [xml, why] : cases) {
      xml.replace(xml.find("FILE"), 4, name);
      Node tree, parsed = parse("<a/>");
      EXPECT_EQ(load(xml).why, why);
      EXPECT_EQ(tree.load(path.c_str(), 0), why.empty() ? 1 : 0);
      EXPECT_EQ(parsed.SetXmlText(xml.c_str()) != 0 ? "" : Node::LastFailure().text, why);
      EXPECT_EQ((text(tree) + text(parsed)).find("SECRET"), std::string::npos);
      EXPECT_FALSE(touched());
    }
  }
  std::filesystem::current_path("/");
  close(watch);
}

TEST_F(HostileFiles, EndAtTheLimits) {
  const auto deep = [](int levels) { return each(levels, "<a>") + each(levels, "</a>"); };
  const auto chain = [](int links) {
    return "<!DOCTYPE a [<!ENTITY x0 ''>" + each(links, "<!ENTITY x^ '&x~;'>") + "]><a>&x" +
           std::to_string(links) + ";</a>";
  };
  const auto name = [](unsigned over) { return "<" + std::string((1U << 24) + over, 'n') + "/>"; };
  using R = Row<std::string, const char*>;
  const Rows cases{R{deep(1024), ""}, R{deep(1025), "nested deeper than 1,024 levels"},
                   R{chain(100), ""}, R{chain(101), "too many entities that name entities"},
                   R{name(0), ""},    R{name(1), "a reserved or overlong name"}};
  for (const auto& [xml, why] : cases) {
    EXPECT_EQ(load(xml).why, why);
  }
  for (const std::size_t over : full ? std::vector<std::size_t>{0, 1} : std::vector<std::size_t>()) {
    EXPECT_EQ(load("<a>" + std::string((1U << 30) - 1 + over, 'x') + "</a>").why,
              over == 0 ? "" : "a text is too long");
  }
}

TEST_F(HostileFiles, AreRefusedWhereverTheyEnd) {
  std::string document = content(DATA_PATH "/settings_v1.xml");
  document.erase(0, document.find("?>") + 2);
  for (const char* const start :
       {"<?xml version='1.0'?>", "\uFEFF<?xml version='1.0'?>",
        "UTF-16LE|\uFEFF<?xml version='1.0' encoding='UTF-16'?>", "UTF-16BE|\uFEFF<?xml version='1.0'?>",
        "GB18030|<?xml version='1.0' encoding='GB18030'?>"}) {
    ASSERT_EQ(load(encoded(start + document)).why, "");
    write(encoded(std::string(start) + document.substr(0, document.rfind('>') + 1)));
    for (std::size_t size = std::filesystem::file_size(path); size-- > 0;
         size -= full ? 0 : std::min<std::size_t>(size, 100)) {
      ASSERT_EQ(truncate(path.c_str(), static_cast<off_t>(size)), 0);
      ASSERT_NE(load().why, "") << start << " " << size;
    }
  }
}

TEST_F(HostileFiles, HoldOnlyCharacters) {
  for (const std::string& bad :
       {"\xC3"s, "\x80"s, "\xC0\x80"s, "\xE0\x80\x80"s, "\xED\xA0\x80"s, "\xF0\x80\x80\x80"s,
        "\xF4\x90\x80\x80"s, "\xF8\x88\x80\x80\x80"s, "\xFF"s, "\xEF\xBF\xBE"s, "\0"s, "\1"s, "\x1F"s}) {
    for (const auto& [start, end] : rows<2>(R"(
             <a> | </a>
             <a b=' | '/>
             <a | />
             <a  | =''/>
             <!-- | --><a/>
             <?p  | ?><a/>
             <a><![CDATA[ | ]]></a>
             <!DOCTYPE a [<!ENTITY x ' | '>]><a/>
             | <a/>
             <a/> |)")) {
      EXPECT_NE(load(start + bad + end).why, "") << bad;
    }
  }
}

}  // namespace
