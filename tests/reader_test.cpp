// The plain reader takes only what Expat takes and makes the same of it, wherever a piece of the text ends.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "both_readers.h"

namespace {

using namespace std::string_literals;

std::string attributes(std::size_t count) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i)
    all += " a" + std::to_string(i) + "='" + std::string(i % 20, 'v') + "'";
  return all;
}

// Between them they have all that plain files can have.
const std::string kTexts[] = {
    "\xEF\xBB\xBF<?xml version=\"1.0\" encoding='uTF-8' standalone = 'yes' ?>\r\n<a/> <!----><?q?>",
    "<?xml\tversion='1.0'?><?xml-p?><?p a?b>?><!--\xC3\xA9--><a><?p \xC3\xA9?><!---\t- --></a>\n\r",
    "<a b='1\r' c=\"'>&lt;&#10;\" d = '&quot;\t\r\n\r\xE2\x82\xAC' e=\"\"><b c='x' b=\"y\"/><b f='2' /></a >",
    "<a>\n        <b>1\r\n2\r3</b>\r\n  \n<c> \r </c>\t<d>\n</d> \n</a>",
    "<a> x <b/>&amp;&gt;&apos; ]] ] &#x41;&#000000000000000000000000000000000066;<c/> \n<!-- --> \r<d/></a>",
    "<?xml-p?><a>x<d/>\n<?p?>]</a>",
    "<a xml:space='preserve'> <b>\n<c/>\t<d xml:space='default'> <e/> </d></b> <!-- --> <f/>\r\n</a>",
    "<a><b> <![CDATA[ <&a;]] > \r\n]]]]></b>\r<![CDATA[\r]]> </a>",
    "<a x='\\41' _NodeEscape='1' y='1'>\\42<b _NodeID='-5' z='\\43'>\\</b>\\20</a>",
    "<a><c _NodeEscape='1'>\\44</c></a>",
    "<a\r\n_NodeID='7' b='0' c='-0' d='07' e='-12' f='12345678' g='2147483647'>-9</a>",
    "<a b='-2147483648' c='2147483648' d='1x' e='-' f='+1' g='123456789012'/>",
    "<a b='1234567890123' c='12345678901234567'><b>1234567890123</b><b>1234567890123456</b></a>",
    "<abcdefg.-_:1 abcdefgh='' abcdefghijklmnop='' abcdefghijklmnopq=''></abcdefg.-_:1>",
    "<abcdefghijklmnopq><ABCDEFGHIJKLMNOPQRSTUVWXYZ>1</ABCDEFGHIJKLMNOPQRSTUVWXYZ></abcdefghijklmnopq>",
    "<a><b abcdefghijklmnopqrs='1'/><b abcdefghijklmnopqrs='&#48;'/><b abcdefghijklmnopqrt=\"1\"/></a>",
    "<\xC3\xA9 \xD1\x8F='\xE4\xBA\xBA'>\x7F\xC2\x80\xEF\xBF\xBD\xF0\x9F\x98\x80 \xD0\xB0\xD0\xB1</\xC3\xA9>",
    "<a" + attributes(40) + "><b" + attributes(9) + "/><b a='" + std::string(40, 'x') +
        "&amp;' b='&lt;'/></a>",
    "<a>" + std::string(70, 'x') + "&#x10FFFF;" + std::string(70, ' ') + "<!--" + std::string(40, ' ') +
        "--></a>",
};

void expect_like_expat(const std::string& text, std::size_t piece) {
  const std::string read = plain_reading(text, piece);
  if (read.empty()) return;
  EXPECT_EQ(read, expat_reading(text, true)) << text << "\nin pieces of " << piece;
  EXPECT_EQ(read, expat_reading(text, false)) << text;
}

TEST(PlainReader, TakesWhatPlainFilesHaveInPiecesOfEverySize) {
  for (const std::string& text : kTexts) {
    const std::string whole = expat_reading(text, true);
    EXPECT_NE(whole, "") << text;
    for (std::size_t piece = 1; piece <= text.size() + 1; ++piece)
      ASSERT_EQ(plain_reading(text, piece), whole) << text << "\nin pieces of " << piece;
  }
}

// The texts with one change: something put in at each place, or put over each byte.
TEST(PlainReader, TakesNothingThatExpatRefuses) {
  std::vector<std::string> changes = {"", " ", "\r", "\n", "\0"s};
  std::istringstream more(
      "< > & \" ' / = ! ? - [ ] a 0 \\ \x1F \x80 \xC3 \xE2\x82 -- ]]> &#0; &x; <b> </a> <!x \xC0\x80 "
      "\xEF\xBF\xBE "
      "\xED\xA0\x80 \xF4\x90\x80\x80 &#X41; \xEF\xBB\xBF");
  for (std::string change; more >> change;) changes.push_back(change);
  for (const std::string& text : kTexts) {
    if (text.size() > 300) continue;  // the same again, but slow
    for (std::size_t at = 0; at <= text.size(); ++at) {
      for (std::size_t i = 0; i < changes.size(); ++i) {
        std::string changed = text;
        changed.replace(at, (at + i) % 3 == 0 ? 0 : 1, changes[i]);
        expect_like_expat(changed, (at + i) % 4 == 0 ? text.size() + 10 : 1 + at % 13);
      }
    }
    ASSERT_FALSE(HasFailure());
  }
}

// The first and last characters of each length, and bytes that are no characters, after up to 20 bytes of others.
TEST(PlainReader, ChecksCharactersWhereverTheyAre) {
  std::istringstream all(
      "x \xC2\x80 \xDF\xBF \xE0\xA0\x80 \xE1\x80\x80 \xEC\xBF\xBF \xED\x9F\xBF \xEE\xBF\xBF \xEF\xBF\xBD "
      "\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF \x80 \xBF\x80 \xC1\xBF \xC3 \xC3\xC3\xA9 \xC3\xA9\xA9 \xE0\x9F\xBF "
      "\xE1\x80 "
      "\xE1\xC3\xA9 \xE1\x80\xC3\xA9 \xE1\x80\x80\x80 \xED\xA0\x80 \xEF\xBF\xBE \xF0\x8F\xBF\xBF "
      "\xF4\x90\x80\x80 \xFF");
  for (std::string character; all >> character;) {
    for (int before = 0; before <= 20; ++before) {
      std::string text(static_cast<std::size_t>(before % 2), 'x');
      for (int i = 0; i < before / 2; ++i) text += "\xD1\x8F";
      text += character + "\xD1\x8F";
      for (const std::string& xml :
           {"<a b='" + text + "'/>", "<a>" + text + "</a>", "<a>&lt;" + text + "<b/></a>",
            "<a><![CDATA[" + text + "]]></a>", "<a><!--" + text + "--></a>"})
        EXPECT_EQ(plain_reading(xml, xml.size()), expat_reading(xml, true)) << xml;
    }
  }
}

TEST(PlainReader, LeavesTheRestToExpat) {
  std::istringstream texts(R"(
    <a>
    <a/><a/>
    <a/>x
    <![CDATA[x]]><a/>
    <a/><![CDATA[]]>
    <a b='1' b='2'/>
    <a _NodeID='1' _NodeID='1'/>
    <_NodeID/>
    <?xml version='1.1'?><a/>
    <?xml version='1.0' encoding='latin1'?><a/>
    <?xml version='1.0' standalone='non'?><a/>
    <a/><?xml version='1.0'?>
    <?XML?><a/>
    <!DOCTYPE a><a/>
    <a>&x;</a>
    <a>&#55296;</a>
    <a>&#4294967361;</a>
    <a></b>
    <a></aa>
    <abcdefghijklmnopq>1</abcdefghijklmnopr>
    <abcdefghijklmnopq></abcdefghijklmnopr>)");
  for (std::string text; std::getline(texts, text);) {
    text.erase(0, text.find('<'));
    for (std::size_t piece = 1; piece < text.size() + 2; ++piece)
      EXPECT_EQ(plain_reading(text, piece), "") << text;
  }
}

}  // namespace
