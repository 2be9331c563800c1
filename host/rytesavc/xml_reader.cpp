#include "xml_reader.h"
#include "charset.h"

#include <expat.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "failure.h"
#include "rytree_host/utf8.h"
#include "xml_writer.h"

namespace rytesavc {

namespace {

// A piece fits in the processor's cache. A token that is longer is looked at anew with each piece: there the
// pieces grow, so that the work stays linear. Expat's buffer ends at 1 GiB.
constexpr std::size_t kFirstPiece = std::size_t{1} << 18;
constexpr std::size_t kLastPiece = std::size_t{1} << 28;

// How much a text may hold: entities and default attributes can make much of little. Text without them never
// comes near.
constexpr unsigned long long kFreeContent = 16ULL << 20;
constexpr unsigned long long kContentPerByte = 8;
constexpr std::size_t kCostOfMarkup = 16;  // of an element or an attribute, beside its text

// Expat goes down the stack for each entity that another one names.
constexpr int kMostNestedEntities = 100;

constexpr char kNoName[] = "a reserved or overlong name";

int Digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

bool IsOwn(const char* name) {
  return name[0] == '_' && name[1] == 'N' &&
         (std::strcmp(name, kNodeId) == 0 || std::strcmp(name, kNodeEscape) == 0);
}

class Reader {
 public:
  Reader(Tree& tree, std::uint32_t depth, const CodePage* page, const char* encoding);
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;
  ~Reader() {
    if (top_ != nullptr) tree_.Free(top_);
  }

  Node* Read(std::string_view utf8);
  Node* Read(InputFile& file);

 private:
  struct Open {
    Node* node;
    std::size_t start;  // of its text, in text_
    bool marked;
  };
  struct KnownName {
    const char* from;
    const Name* name;
  };

  template <class Work>
  static void Guard(void* reader, const Work& work);
  static int OnUnknownEncoding(void*, const XML_Char* name, XML_Encoding* encoding);

  void Start(const char* tag, const char** attributes);
  void TakeOwn(Open& element, const char* name, std::string_view value);
  void StartAttributes(Open& element, const char** attributes);
  void End();
  void Data(const char* text, std::size_t length);
  void DropLayout();
  void Count(std::size_t bytes);
  bool IsInPage(std::string_view text);
  void Stop(const char* problem) { Stop(problem, Place()); }
  void Stop(const char* problem, TextPosition place);
  TextPosition Place() const;
  TextPosition PlaceOf(char32_t wanted) const;
  const Name* AttributeName(const char* name);
  void SetText(Value& value, std::string_view text, bool marked);
  void AppendInPage(std::string_view utf8);

  bool Accepted(XML_Status status);
  Node* Take() { return std::exchange(top_, nullptr); }

  Tree& tree_;
  const CodePage* page_;
  std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser_;
  Node* top_ = nullptr;
  std::uint32_t depth_;     // of the next element
  std::vector<Open> open_;  // from the top element down to the one at hand
  std::string text_;        // of the open elements, one behind the other
  std::size_t run_ = 0;     // where what came since the last tag starts in it
  std::string converted_;
  unsigned long long fed_ = 0;
  unsigned long long content_ = 0;
  int nested_entities_ = 0;
  const char* problem_ = nullptr;  // why the text is refused
  TextPosition place_;             // and where
  std::string lack_;
  KnownName known_[64] = {};
};

Reader::Reader(Tree& tree, std::uint32_t depth, const CodePage* page, const char* encoding)
    : tree_(tree), page_(page), parser_(XML_ParserCreate(encoding), XML_ParserFree), depth_(depth) {
  if (parser_ == nullptr) throw std::bad_alloc();
  auto* const parser = parser_.get();
  XML_SetUserData(parser, this);
  XML_SetElementHandler(
      parser,
      [](void* self, const XML_Char* tag, const XML_Char** attributes) {
        Guard(self, [&](Reader& reader) { reader.Start(tag, attributes); });
      },
      [](void* self, const XML_Char*) { Guard(self, [](Reader& reader) { reader.End(); }); });
  XML_SetCharacterDataHandler(parser, [](void* self, const XML_Char* text, int length) {
    Guard(self, [&](Reader& reader) { reader.Data(text, static_cast<std::size_t>(length)); });
  });
  XML_SetEntityDeclHandler(parser, [](void* self, const XML_Char*, int, const XML_Char* value, int length,
                                      const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*) {
    auto& reader = *static_cast<Reader*>(self);
    if (value == nullptr || std::find(value, value + length, '&') == value + length) return;
    if (++reader.nested_entities_ > kMostNestedEntities) reader.Stop("too many entities that name entities");
  });
  XML_SetExternalEntityRefHandler(parser, [](XML_Parser, const XML_Char*, const XML_Char*, const XML_Char*,
                                             const XML_Char*) { return static_cast<int>(XML_STATUS_ERROR); });
  XML_SetSkippedEntityHandler(
      parser, [](void* self, const XML_Char*, int) { static_cast<Reader*>(self)->Stop("undefined entity"); });
  XML_SetUnknownEncodingHandler(parser, OnUnknownEncoding, nullptr);
}

// Expat is C: nothing may be thrown through it. Some handlers still run after the reader has given up.
template <class Work>
void Reader::Guard(void* self, const Work& work) {
  auto& reader = *static_cast<Reader*>(self);
  if (reader.problem_ != nullptr) return;
  try {
    work(reader);
  } catch (const std::bad_alloc&) {
    reader.Stop("out of memory");
  }
}

TextPosition Reader::Place() const {
  auto* const parser = parser_.get();
  return {static_cast<int>(XML_GetCurrentLineNumber(parser)),
          static_cast<int>(XML_GetCurrentColumnNumber(parser)) + 1,
          std::max<long long>(XML_GetCurrentByteIndex(parser), 0)};
}

void Reader::Stop(const char* problem, TextPosition place) {
  problem_ = problem;
  place_ = place;
  XML_StopParser(parser_.get(), XML_FALSE);
}

// Where the character is in the markup or the text at hand; where that starts if it is written in another way.
TextPosition Reader::PlaceOf(char32_t wanted) const {
  TextPosition place = Place();
  int offset = 0;
  int size = 0;
  const char* at = XML_GetInputContext(parser_.get(), &offset, &size);
  if (at == nullptr) return place;
  at += offset;
  for (int left = XML_GetCurrentByteCount(parser_.get()); left > 0;) {
    const char* const start = at;
    const char32_t code = utf8::next(at, static_cast<std::size_t>(left));
    if (code == wanted) return place;
    place.line += code == '\n';
    place.column = code == '\n' ? 1 : place.column + 1;
    place.offset += at - start;
    left -= static_cast<int>(at - start);
  }
  return Place();
}

// False, and an end to the reading, if the page of the strings lacks one of the characters.
bool Reader::IsInPage(std::string_view text) {
  if (page_ == nullptr) return true;
  const char* at = text.data();
  while (at != text.data() + text.size()) {
    const char32_t code = utf8::next(at);
    if (page_->Has(code)) continue;
    lack_ = LackOf(code, *page_);
    Stop(lack_.c_str(), PlaceOf(code));
    return false;
  }
  return true;
}

void Reader::Count(std::size_t bytes) {
  content_ += bytes;
  if (content_ > kFreeContent + kContentPerByte * fed_) Stop("the entities expand to too much");
}

int Reader::OnUnknownEncoding(void*, const XML_Char* name, XML_Encoding* encoding) {
  const std::string_view all(name);
  const auto is = [all](std::string_view start) {
    return all.size() > start.size() && std::equal(start.begin(), start.end(), all.begin(),
                                                   [](char a, char b) { return a == (b | 0x20); });
  };
  if (!is("windows-125") && !is("cp125") && !is("iso-8859-")) return XML_STATUS_ERROR;
  encoding->data = nullptr;
  encoding->convert = nullptr;
  encoding->release = nullptr;
  return SingleByteCodes(name, encoding->map) ? XML_STATUS_OK : XML_STATUS_ERROR;
}

// ---- Elements.

void Reader::Start(const char* tag, const char** attributes) {
  if (depth_ > Tree::kMaxDepth) return Stop("nested deeper than 1,024 levels");
  if (!IsInPage(tag)) return;
  for (const char** at = attributes; *at != nullptr; ++at) {
    if (!IsInPage(*at)) return;
  }
  const Name* const name = tree_.Intern(tag);
  if (name == nullptr) return Stop(kNoName);
  DropLayout();
  Node* const node = tree_.NewNode(name, -1, depth_);
  if (open_.empty()) {
    top_ = node;
  } else {
    tree_.Append(open_.back().node, node);
  }
  open_.push_back({node, run_, false});
  ++depth_;
  Count(kCostOfMarkup);
  if (*attributes != nullptr) StartAttributes(open_.back(), attributes);
}

// The two attributes of the text form may stand anywhere among the others.
void Reader::StartAttributes(Open& element, const char** attributes) {
  std::uint32_t count = 0;
  for (const char** at = attributes; *at != nullptr; at += 2) {
    if (IsOwn(at[0])) {
      TakeOwn(element, at[0], at[1]);
    } else {
      ++count;
    }
  }
  Node* const node = element.node;
  tree_.ReserveAttributes(node, count);
  for (const char** at = attributes; *at != nullptr && problem_ == nullptr; at += 2) {
    const std::string_view value(at[1]);
    Count(kCostOfMarkup + value.size());
    if (IsOwn(at[0])) continue;
    const Name* const name = AttributeName(at[0]);
    if (name == nullptr) return Stop(kNoName);
    // Expat has seen to it that no name comes twice.
    Attribute* const attribute = new (&node->attributes[node->attribute_count++]) Attribute{name, {}};
    SetText(attribute->value, value, element.marked);
  }
}

void Reader::TakeOwn(Open& element, const char* name, std::string_view value) {
  if (std::strcmp(name, kNodeEscape) == 0) {
    element.marked = value == "1";
    return;
  }
  int id = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), id);
  if (error == std::errc() && end == value.data() + value.size()) element.node->id = id;
}

// Expat gives an attribute's name at the same address each time. A few places are tried, so that no two of
// the names that stand on every element drive each other out.
const Name* Reader::AttributeName(const char* name) {
  constexpr std::size_t kTried = 4;
  const std::size_t start = reinterpret_cast<std::uintptr_t>(name) >> 3;
  KnownName* place = &known_[start % std::size(known_)];
  for (std::size_t i = 0; i < kTried; ++i) {
    KnownName& known = known_[(start + i) % std::size(known_)];
    if (known.from == name && std::strcmp(known.name->text(), name) == 0) return known.name;
    if (known.from == nullptr || known.from == name) {
      place = &known;
      break;
    }
  }
  const Name* const found = tree_.Intern(name);
  if (found != nullptr) *place = {name, found};
  return found;
}

void Reader::End() {
  const Open element = open_.back();
  if (element.node->first != nullptr) DropLayout();
  if (text_.size() != element.start) {
    SetText(element.node->text, std::string_view(text_).substr(element.start), element.marked);
    text_.resize(element.start);
  }
  run_ = element.start;
  open_.pop_back();
  --depth_;
}

// ---- Texts.

void Reader::Data(const char* text, std::size_t length) {
  Count(length);
  if (!IsInPage({text, length})) return;
  text_.append(text, length);
}

// A branch's text between two tags that is nothing but white space.
void Reader::DropLayout() {
  const auto start = text_.begin() + static_cast<std::ptrdiff_t>(run_);
  if (std::all_of(start, text_.end(), IsXmlBlank)) text_.erase(start, text_.end());
  run_ = text_.size();
}

void Reader::SetText(Value& value, std::string_view text, bool marked) {
  if (marked || page_ != nullptr) {
    converted_.clear();
    for (std::size_t at = text.find('\\'); marked && at != text.npos; at = text.find('\\')) {
      AppendInPage(text.substr(0, at));
      const int high = at + 2 < text.size() ? Digit(text[at + 1]) : -1;
      const int low = high >= 0 ? Digit(text[at + 2]) : -1;
      converted_ += low >= 0 ? static_cast<char>(high * 16 + low) : '\\';
      text.remove_prefix(at + (low >= 0 ? 3 : 1));
    }
    AppendInPage(text);
    text = converted_;
  }
  if (!tree_.SetText(value, text)) Stop("a text is too long");
}

void Reader::AppendInPage(std::string_view utf8) {
  if (page_ == nullptr) {
    converted_ += utf8;
  } else {
    page_->FromUtf8(utf8, converted_);
  }
}

// ---- The whole.

// Notes why a piece of text was refused.
bool Reader::Accepted(XML_Status status) {
  // Expat does not say that it was stopped at the very end.
  if (status == XML_STATUS_OK && problem_ == nullptr) return true;
  if (problem_ == nullptr) {
    problem_ = XML_ErrorString(XML_GetErrorCode(parser_.get()));
    place_ = Place();
  }
  NoteFailure(problem_ != nullptr ? problem_ : "unknown error", place_);
  return false;
}

Node* Reader::Read(std::string_view utf8) {
  for (std::size_t size = utf8.size();; size = utf8.size()) {
    const std::size_t piece = std::min(size, kLastPiece);
    fed_ += piece;
    if (!Accepted(XML_Parse(parser_.get(), utf8.data(), static_cast<int>(piece), piece == size)))
      return nullptr;
    if (piece == size) return Take();
    utf8.remove_prefix(piece);
  }
}

Node* Reader::Read(InputFile& file) {
  auto* const parser = parser_.get();
  std::size_t room = std::min(file.size() + 1, kFirstPiece);
  for (std::size_t length = 1; length != 0;) {
    void* const buffer = XML_GetBuffer(parser, static_cast<int>(room));
    if (buffer == nullptr) throw std::bad_alloc();
    if (!file.Read(static_cast<char*>(buffer), room, length)) return nullptr;
    fed_ += length;
    if (!Accepted(XML_ParseBuffer(parser, static_cast<int>(length), length == 0))) return nullptr;
    if (fed_ < file.size()) tree_.ExpectWhole(fed_, file.size());
    const auto done = static_cast<unsigned long long>(XML_GetCurrentByteIndex(parser));
    if (fed_ - done >= room) room = std::min(2 * room, kLastPiece);
  }
  return Take();
}

}  // namespace

Node* ReadXml(std::string_view utf8, Tree& tree, std::uint32_t depth, const CodePage* page) {
  return Reader(tree, depth, page, "UTF-8").Read(utf8);
}

Node* ReadXml(InputFile& file, Tree& tree, std::uint32_t depth, const CodePage* page) {
  return Reader(tree, depth, page, nullptr).Read(file);
}

}  // namespace rytesavc
