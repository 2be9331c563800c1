#include "xml_reader.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <string>

#include "encodings.h"
#include "expat_reader.h"
#include "failure.h"
#include "plain_reader.h"

namespace rytesavc {

namespace {

// A piece fits in the processor's cache.
constexpr std::size_t kPiece = std::size_t{1} << 18;
constexpr std::size_t kFirstMemory = std::size_t{1} << 16;

// The node that was made. Notes what is not in it.
Node* Take(XmlBuilder& builder) {
  NotePassedOver(builder.passed_over());
  return builder.Take();
}

Node* ReadPlain(XmlInput& input, Tree& tree, std::uint32_t depth, const CodePage* page) {
  XmlBuilder builder(tree, depth, page);
  try {
    return ReadPlain(input, builder, std::min(input.size() + 1, kPiece)) ? Take(builder) : nullptr;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

Node* ReadWithExpat(XmlInput& input, Tree& tree, std::uint32_t depth, const CodePage* page,
                    const char* encoding, std::string* unknown = nullptr) {
  XmlBuilder builder(tree, depth, page);
  return ReadWithExpat(input, builder, encoding, unknown) ? Take(builder) : nullptr;
}

// The encoding that a byte order mark at the start of the file tells, whatever the file declares; null without one.
const char* MarkedEncoding(InputFile& file) {
  std::array<char, 3> start{};
  std::size_t length = 0;
  if (!file.Read(start.data(), start.size(), length)) return nullptr;
  const std::string_view text(start.data(), length);
  if (text.starts_with("\xEF\xBB\xBF")) return "UTF-8";
  return text.starts_with("\xFE\xFF") || text.starts_with("\xFF\xFE") ? "UTF-16" : nullptr;
}

// A file in an encoding that Expat does not know, or not by that name.
Node* ReadConverted(InputFile& file, Tree& tree, const CodePage* page, const char* charset) {
  ClearFailure();
  if (!file.Rewind()) return nullptr;
  if (std::string_view(charset) == "UTF-8") return ReadWithExpat(file, tree, 1, page, charset);
  ConvertedInput converted(file, charset);
  if (Node* const top = ReadWithExpat(converted, tree, 1, page, "UTF-8")) return top;
  const long long offset = FailureOffset();
  if (offset > 0 && !converted.has_failed() && file.Rewind())
    MoveFailure(PlaceBeforeConversion(file, charset, offset));
  return nullptr;
}

}  // namespace

Node* ReadXml(std::string_view utf8, Tree& tree, std::uint32_t depth, const CodePage* page) {
  TextInput first(utf8);
  if (Node* const top = ReadPlain(first, tree, depth, page)) return top;
  TextInput again(utf8);
  return ReadWithExpat(again, tree, depth, page, "UTF-8");
}

Tree* ReadXml(InputFile& file, const CodePage* page) {
  const auto release = [](Tree* tree) { tree->Release(); };
  // Most trees need two to three times as many bytes as their files. A small one is spared many small steps.
  std::unique_ptr<Tree, decltype(release)> tree(Tree::Create(std::min(3 * file.size(), kFirstMemory)));
  tree->root = ReadPlain(file, *tree, 1, page);
  if (tree->root != nullptr) return tree.release();
  // A new tree, so that its nodes follow each other in memory.
  tree.reset();
  if (!file.Rewind()) return nullptr;
  const char* const marked = MarkedEncoding(file);
  if (!file.Rewind()) return nullptr;
  tree.reset(Tree::Create());
  std::string declared;
  tree->root = ReadWithExpat(file, *tree, 1, page, marked, &declared);
  if (const char* const charset = CharsetOf(declared)) tree->root = ReadConverted(file, *tree, page, charset);
  return tree->root != nullptr ? tree.release() : nullptr;
}

}  // namespace rytesavc
