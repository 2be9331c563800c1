#include "expat_reader.h"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "declared_entities.h"
#include "failure.h"
#include "rytree_host/utf8.h"

namespace rytesavc {

namespace {

// A piece fits in the processor's cache. A longer token is scanned again with each piece: for it the pieces
// grow, so that the work stays linear. Expat's buffer ends at 1 GiB.
constexpr std::size_t kFirstPiece = std::size_t{1} << 18;
constexpr std::size_t kLastPiece = std::size_t{1} << 28;

// How much a text may hold: entities and default attributes can make much of little. Text without them never
// comes near.
constexpr unsigned long long kFreeContent = 16ULL << 20;
constexpr unsigned long long kContentPerByte = 8;
constexpr std::size_t kCostOfMarkup = 16;  // of an element or an attribute, beside its text

// Expat goes down the stack for each entity that another one names.
constexpr int kMostNestedEntities = 100;

class Reader {
 public:
  Reader(XmlBuilder& builder, const char* encoding);

  bool Read(XmlInput& input);
  // What the text declares, if Expat does not know that.
  const std::string& unknown_encoding() const { return unknown_encoding_; }

 private:
  template <class Work>
  static void Guard(void* reader, const Work& work);
  static int OnUnknownEncoding(void*, const XML_Char* name, XML_Encoding* encoding);
  static void OnDeclaration(void* self, const XML_Char* token, int length);
  static void OnMarkup(void* self, const XML_Char* part, int length);

  void Start(const char* tag, const char** attributes);
  void Text(std::string_view text);
  void Entity(std::string_view name, std::string_view text);
  void CheckEntities() {
    if (!entities_.Cover(markup_)) Stop("undefined entity");
    markup_.clear();
  }
  void Count(std::size_t bytes);
  bool IsInPage(std::string_view text);
  void Check(bool built) {
    if (!built) Stop(builder_.problem());
  }
  void Stop(const char* problem) { Stop(problem, Place()); }
  void Stop(const char* problem, TextPosition place);
  TextPosition Place() const;
  TextPosition PlaceOf(char32_t wanted) const;
  bool Accepted(XML_Status status);

  XmlBuilder& builder_;
  std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser_;
  unsigned long long fed_ = 0;
  unsigned long long content_ = 0;
  int nested_entities_ = 0;
  DeclaredEntities entities_;
  bool may_skip_ = false;
  bool in_attributes_ = false;
  std::string markup_;
  const char* problem_ = nullptr;  // why the text is refused
  TextPosition place_;             // and where
  std::string lack_;
  std::string unknown_encoding_;
};

Reader::Reader(XmlBuilder& builder, const char* encoding)
    : builder_(builder), parser_(XML_ParserCreate(encoding), XML_ParserFree) {
  if (parser_ == nullptr) throw std::bad_alloc();
  auto* const parser = parser_.get();
  XML_SetUserData(parser, this);
  XML_SetElementHandler(
      parser,
      [](void* self, const XML_Char* tag, const XML_Char** attributes) {
        Guard(self, [&](Reader& reader) { reader.Start(tag, attributes); });
      },
      [](void* self, const XML_Char*) {
        Guard(self, [](Reader& reader) { reader.Check(reader.builder_.End()); });
      });
  XML_SetCharacterDataHandler(parser, [](void* self, const XML_Char* text, int length) {
    Guard(self, [&](Reader& reader) { reader.Text({text, static_cast<std::size_t>(length)}); });
  });
  XML_SetCommentHandler(parser, [](void* self, const XML_Char*) {
    ++static_cast<Reader*>(self)->builder_.passed_over().comments;
  });
  XML_SetProcessingInstructionHandler(parser, [](void* self, const XML_Char*, const XML_Char*) {
    ++static_cast<Reader*>(self)->builder_.passed_over().instructions;
  });
  XML_SetStartDoctypeDeclHandler(parser,
                                 [](void* self, const XML_Char*, const XML_Char*, const XML_Char*, int) {
                                   ++static_cast<Reader*>(self)->builder_.passed_over().doctypes;
                                 });
  XML_SetEntityDeclHandler(
      parser, [](void* self, const XML_Char* name, int is_parameter, const XML_Char* value, int length,
                 const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*) {
        Guard(self, [&](Reader& reader) {
          ++reader.builder_.passed_over().entities;
          if (value != nullptr && is_parameter == 0)
            reader.Entity(name, {value, static_cast<std::size_t>(length)});
        });
      });
  XML_SetNotStandaloneHandler(parser, [](void* self) {
    auto& reader = *static_cast<Reader*>(self);
    reader.may_skip_ = true;
    XML_SetDefaultHandlerExpand(reader.parser_.get(), OnDeclaration);
    return static_cast<int>(XML_STATUS_OK);
  });
  XML_SetEndDoctypeDeclHandler(parser, [](void* self) {
    XML_SetDefaultHandlerExpand(static_cast<Reader*>(self)->parser_.get(), nullptr);
  });
  XML_SetExternalEntityRefHandler(parser, [](XML_Parser, const XML_Char*, const XML_Char*, const XML_Char*,
                                             const XML_Char*) { return static_cast<int>(XML_STATUS_ERROR); });
  XML_SetSkippedEntityHandler(
      parser, [](void* self, const XML_Char*, int) { static_cast<Reader*>(self)->Stop("undefined entity"); });
  XML_SetUnknownEncodingHandler(parser, OnUnknownEncoding, this);
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

// The first problem counts.
void Reader::Stop(const char* problem, TextPosition place) {
  if (problem_ != nullptr) return;
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
  const char* const lacking = builder_.FindLacking(text);
  if (lacking == nullptr) return true;
  const char* at = lacking;
  const char32_t code = utf8::next(at);
  lack_ = LackOf(code, *builder_.page());
  Stop(lack_.c_str(), PlaceOf(code));
  return false;
}

void Reader::Count(std::size_t bytes) {
  content_ += bytes;
  if (content_ > kFreeContent + kContentPerByte * fed_) Stop("the entities expand to too much");
}

int Reader::OnUnknownEncoding(void* self, const XML_Char* name, XML_Encoding*) {
  Guard(self, [name](Reader& reader) { reader.unknown_encoding_ = name; });
  return XML_STATUS_ERROR;
}

void Reader::Start(const char* tag, const char** attributes) {
  std::size_t bytes = kCostOfMarkup;
  const bool has_page = builder_.page() != nullptr;
  if (has_page && !IsInPage(tag)) return;
  builder_.Begin();
  for (const char** at = attributes; *at != nullptr; at += 2) {
    const std::string_view value(at[1]);
    if (has_page && (!IsInPage(at[0]) || !IsInPage(value))) return;
    Check(builder_.Attribute(builder_.AttributeName(NameText(at[0])), value));
    bytes += kCostOfMarkup + value.size();
  }
  if (may_skip_ && *attributes != nullptr) {
    XML_SetDefaultHandlerExpand(parser_.get(), OnMarkup);
    XML_DefaultCurrent(parser_.get());
    XML_SetDefaultHandlerExpand(parser_.get(), nullptr);
    CheckEntities();
  }
  Node* const element = builder_.Element(builder_.tree().Intern(tag));
  Check(element != nullptr);
  if (element != nullptr) builder_.Open(element);
  Count(bytes);
}

void Reader::Text(std::string_view text) {
  Count(text.size());
  if (IsInPage(text)) builder_.Text(text);
}

void Reader::Entity(std::string_view name, std::string_view text) {
  if (text.find('&') != text.npos && ++nested_entities_ > kMostNestedEntities)
    Stop("too many entities that name entities");
  entities_.Add(name, text);
}

// With a DOCTYPE that is not all there Expat leaves out undefined entities in the values of attributes, and tells
// nobody. Start tags, and the default values that the DOCTYPE gives, are looked through for such.
void Reader::OnDeclaration(void* self, const XML_Char* token, int length) {
  Guard(self, [text = std::string_view(token, static_cast<std::size_t>(length))](Reader& reader) {
    if (text == "<!ATTLIST") reader.in_attributes_ = true;
    if (reader.in_attributes_) reader.markup_ += text;
    if (text != ">") return;
    reader.in_attributes_ = false;
    reader.CheckEntities();
  });
}

void Reader::OnMarkup(void* self, const XML_Char* part, int length) {
  Guard(self, [&](Reader& reader) { reader.markup_.append(part, static_cast<std::size_t>(length)); });
}

// Notes why a piece of text was refused.
bool Reader::Accepted(XML_Status status) {
  // Expat does not say that it was stopped at the very end.
  if (status == XML_STATUS_OK && problem_ == nullptr) return true;
  if (problem_ == nullptr) {
    problem_ = XML_ErrorString(XML_GetErrorCode(parser_.get()));
    place_ = Place();
  }
  if (unknown_encoding_.empty()) {
    NoteFailure(problem_ != nullptr ? problem_ : "unknown error", place_);
  } else {
    NoteFailure("unknown encoding '" + unknown_encoding_ + "'", place_);
  }
  return false;
}

bool Reader::Read(XmlInput& input) {
  auto* const parser = parser_.get();
  std::size_t room = std::min(input.size() + 1, kFirstPiece);
  for (std::size_t length = 1; length != 0;) {
    void* const buffer = XML_GetBuffer(parser, static_cast<int>(room));
    if (buffer == nullptr) throw std::bad_alloc();
    if (!input.Read(static_cast<char*>(buffer), room, length)) return false;
    fed_ += length;
    if (!Accepted(XML_ParseBuffer(parser, static_cast<int>(length), length == 0))) return false;
    if (fed_ < input.size()) builder_.tree().ExpectWhole(fed_, input.size());
    const auto done = static_cast<unsigned long long>(XML_GetCurrentByteIndex(parser));
    if (fed_ - done >= room) room = std::min(2 * room, kLastPiece);
  }
  return true;
}

}  // namespace

bool ReadWithExpat(XmlInput& input, XmlBuilder& builder, const char* encoding, std::string* unknown) {
  Reader reader(builder, encoding);
  const bool done = reader.Read(input);
  if (unknown != nullptr) *unknown = reader.unknown_encoding();
  return done;
}

}  // namespace rytesavc
