// Message catalogues: what is found in them, and that broken ones do no harm.
#include "platform/message_catalogue.h"

#include "tree_text.h"

namespace {

using namespace std::string_literals;
using Entries = std::vector<std::pair<std::string, std::string>>;

// A catalogue as msgfmt writes it: seven numbers, two tables of lengths and places, the texts.
std::string catalogue(const Entries& entries, bool is_swapped = false) {
  std::string numbers;
  std::string texts;
  const auto add = [&](std::size_t number) {
    for (int i = 0; i < 4; ++i) numbers += static_cast<char>(number >> 8 * (is_swapped ? 3 - i : i));
  };
  const std::size_t count = entries.size();
  for (const std::size_t number : std::vector<std::size_t>{0x950412DE, 0, count, 28, 28 + 8 * count, 0, 0})
    add(number);
  for (const bool is_first : {true, false}) {
    for (const auto& [original, translation] : entries) {
      const std::string& text = is_first ? original : translation;
      add(text.size());
      add(28 + 16 * count + texts.size());
      texts += text + '\0';
    }
  }
  return numbers + texts;
}

std::string found(const std::string& file, const char* text) {
  const platform::MessageCatalogue catalogue(file);
  const char* const translation = catalogue.Find(text);
  return translation != nullptr ? translation : "(none)";
}

TEST(MessageCatalogue, HasTheTextsOfItsFile) {
  const auto with_head = [](const std::string& charset) {
    return Entries{{"", "Content-Type: text/plain; charset=" + charset + "\n"}, {"a", "A"}};
  };
  const Entries some = {{"a", "A"}, {"file\0files"s, "Datei\0Dateien"s}, {"host", "hôte"}, {"zéro", ""}};
  using R = Row<Entries, const char*, const char*>;
  for (const auto& [entries, text, wanted] :
       Rows{R{some, "a", "A"}, R{some, "file", "Datei"}, R{some, "files", "(none)"}, R{some, "host", "hôte"},
            R{some, "zéro", ""}, R{some, "", "(none)"}, R{some, "ab", "(none)"}, R{some, "zz", "(none)"},
            R{{}, "a", "(none)"}, R{with_head("UTF-8"), "a", "A"}, R{with_head("utf8"), "a", "A"},
            R{with_head("ISO-8859-1"), "a", "(none)"}}) {
    for (const bool is_swapped : {false, true})
      EXPECT_EQ(found(catalogue(entries, is_swapped), text), wanted);
  }
}

TEST(MessageCatalogue, MayBeBroken) {
  const std::string whole = catalogue({{"a", "A"}, {"b", "B"}, {"c", "C"}});
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_EQ(found(whole.substr(0, size), "c"), "(none)") << size;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (const char byte : {'\0', '\1', '\x7F', '\x80', '\xFF'}) {
      std::string file = whole;
      file[at] = byte;
      for (const char* text : {"a", "b", "c"}) EXPECT_LT(found(file, text).size(), whole.size());
    }
  }
}

}  // namespace
