#include "plain_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "plain_names.h"
#include "plain_scan.h"
#include "plain_text.h"

namespace rytesavc {

namespace {

// A token of which more than this has come without its end is left to Expat.
constexpr std::size_t kLongestToken = std::size_t{1} << 28;
// A token that is not complete is read again from its start when the next piece has come. From this length on the pieces
// grow with the token, so that the work stays linear.
constexpr std::size_t kLongToken = std::size_t{1} << 18;
// No decision needs more than this many bytes from the place that it is about.
constexpr std::ptrdiff_t kLookahead = 32;

template <char... kEnds>
NameText NameAt(const char* at) {
  std::size_t length = FirstStop<0x21, kEnds...>(at);
  const bool is_short = length < TextWords::kBytes && static_cast<signed char>(at[length]) >= 0;
  if (!is_short) [[unlikely]]
    length = NameLength<kEnds...>(at);
  return {{at, length}, TextWords::OfPadded(at, length)};
}

bool IsReservedTarget(std::string_view target) {
  return target.size() == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' &&
         (target[2] | 0x20) == 'l';
}

class Reader {
 public:
  Reader(XmlInput& input, XmlBuilder& builder, std::size_t piece)
      : input_(input), builder_(builder), tree_(builder.tree()), piece_(piece) {}

  bool Read();

 private:
  enum class Answer { kTaken, kMore, kRefused };
  bool Fill();
  void TakeTokens();
  // These read one token, or a part of one, that starts at `at`, and give the place after it. Null, with an answer, if
  // it is not complete or not accepted.
  char* Start(char* at);
  char* Outside(char* at);
  char* Tag(char* at);
  char* Text(char* at);
  bool IsLayout(char next) const;
  char* CData(char* at);
  char* StartTag(char* at);
  char* ShortText(char* at, const NameText& tag, Value& text);
  bool AttributeName(const char* at, KnownName& known);
  template <char kQuote>
  char* AttributeValue(char* at, const Name* name);
  template <char kQuote>
  char* LongValue(char* at, const Name* name);
  DecodedText Decoded(TextKind kind, const char* text, char* from);
  char* EndTag(char* at);
  char* Comment(char* at);
  char* Instruction(char* at);

  char* Give(Answer answer) {
    answer_ = answer;
    return nullptr;
  }
  char* Refuse() { return Give(Answer::kRefused); }
  // This is wrong at `at`, unless it only seems so because the piece ends there.
  char* Stop(const char* at) {
    return Give(end_ - at < kLookahead && !last_ ? Answer::kMore : Answer::kRefused);
  }

  XmlInput& input_;
  XmlBuilder& builder_;
  Tree& tree_;
  Answer answer_ = Answer::kMore;
  bool started_ = false;
  bool last_ = false;  // whether this is the last piece
  std::size_t piece_;
  std::size_t fed_ = 0;

  std::array<char, 1024> small_buffer_;
  std::unique_ptr<char[]> large_buffer_;
  char* buffer_ = small_buffer_.data();
  std::size_t room_ = small_buffer_.size();
  char* at_ = buffer_;   // the token at hand
  char* end_ = buffer_;  // of the text in the buffer; there is a NUL

  // Of the token at hand, and of the text before it.
  std::unique_ptr<char[]> decoded_;  // what had to be decoded, with as much room as the buffer has
  std::size_t decoded_room_ = 0;
  char* decoded_end_ = nullptr;

  KnownNames names_;  // of attributes
};

bool Reader::Read() {
  do {
    if (!Fill()) return false;
    TakeTokens();
    if (fed_ < input_.size()) tree_.ExpectWhole(fed_, input_.size());
  } while (answer_ == Answer::kMore);
  return answer_ == Answer::kTaken;
}

// Reads the next piece, after the token at hand, which moves to the start of the buffer.
bool Reader::Fill() {
  const auto rest = static_cast<std::size_t>(end_ - at_);
  if (rest > kLongestToken) return false;
  if (rest >= kLongToken) piece_ = rest;
  const std::size_t wanted = rest + piece_;
  if (wanted + kPadding > room_) {
    constexpr std::size_t kSpare = 4096;
    room_ = wanted + kSpare + kPadding;
    std::unique_ptr<char[]> larger(new char[room_]);
    std::memcpy(larger.get(), at_, rest);
    large_buffer_ = std::move(larger);
    buffer_ = large_buffer_.get();
  } else {
    std::memmove(buffer_, at_, rest);
  }
  std::size_t length = 0;
  if (!input_.Read(buffer_ + rest, piece_, length)) return false;
  fed_ += length;
  last_ = length < piece_;
  at_ = buffer_;
  end_ = buffer_ + rest + length;
  std::memset(end_, 0, kPadding);
  return true;
}

void Reader::TakeTokens() {
  char* at = started_ ? at_ : Start(at_);
  for (; at != nullptr; at = Tag(at)) {
    at_ = at;
    decoded_end_ = decoded_.get();
    if (!builder_.is_open()) {
      at = Outside(at);
    } else if (*at != '<') {
      at = Text(at);
    }
    if (at == nullptr) return;
    at_ = at;
  }
}

char* Reader::Start(char* at) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  constexpr std::string_view kDeclaration = "<?xml";
  if (end_ - at < kLookahead && !last_) return Give(Answer::kMore);
  std::string_view text(at, end_);
  if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  if (text.starts_with(kDeclaration) && IsXmlBlank(text.data()[kDeclaration.size()])) {
    const std::size_t end = text.find("?>");
    if (end == text.npos) return Stop(end_);
    if (!IsPlainDeclaration(text.substr(kDeclaration.size(), end - kDeclaration.size()))) return Refuse();
    text.remove_prefix(end + 2);
  }
  started_ = true;
  return end_ - text.size();
}

// Before and after the top element: to the next tag that may be there.
char* Reader::Outside(char* at) {
  at = SkipBlanks(at);
  if (at == end_) {
    at_ = at;
    return Give(!last_ ? Answer::kMore : builder_.has_top() ? Answer::kTaken : Answer::kRefused);
  }
  const bool is_start = at[1] != '!' && at[1] != '?';
  const bool may_be = is_start ? !builder_.has_top() && at[1] != '/' : at[2] != '[';
  return *at == '<' && may_be ? at : Stop(at);
}

// What starts with a '<'.
char* Reader::Tag(char* at) {
  const char kind = at[1];
  if (kind <= '?') [[unlikely]] {  // below the letters
    if (kind == '/') return EndTag(at);
    if (kind == '!') return at[2] == '[' ? CData(at) : Comment(at);
    if (kind == '?') return Instruction(at);
  }
  return StartTag(at);
}

// ---- Texts.

char* Reader::Text(char* at) {
  char* end = SkipLayout(at);
  if (*end == '<' && IsLayout(end[1])) return end;
  for (end = at; *(end = Skip<'<', '&', ']'>(end)) != '<' && MeansItself(end); ++end) {
  }
  DecodedText text{{at, end}, end};
  if (*end == '&' || *end == '\r') text = Decoded(TextKind::kContent, at, end);
  if (*text.end != '<') return Stop(text.end);
  if (text.end[1] == '/') return builder_.LastText(text.text) ? text.end : Refuse();
  builder_.Text(text.text);
  return text.end;
}

// Whether white space is layout before a '<' and this byte.
bool Reader::IsLayout(char next) const {
  return next != '!' && next != '?' && next != '\0' && builder_.IsLayout(next == '/');
}

char* Reader::CData(char* at) {
  constexpr std::string_view kStart = "<![CDATA[";
  if (!std::string_view(at, end_).starts_with(kStart)) return Stop(at);
  at += kStart.size();
  char* end = at;
  while (MeansItself(end = Skip<']'>(end))) ++end;
  DecodedText text{{at, end}, end};
  if (*end == '\r') text = Decoded(TextKind::kCData, at, end);
  if (*text.end != ']') return Stop(text.end);
  builder_.Text(text.text);
  return text.end + 3;
}

// ---- Tags.

char* Reader::StartTag(char* at) {
  const NameText name = NameAt<'/', '>'>(++at);
  at += name.view.size();
  const std::uint32_t hash = Tree::Hash(name.view, name.words);
  const Name* tag = tree_.FindName(name.view, name.words, hash);
  if (tag == nullptr) {
    if (!EndsTagName(*at)) return Stop(at);
    tag = tree_.InternNew(name.view, name.words, hash);
    if (tag == nullptr) return Refuse();
  }
  builder_.Begin();
  for (std::size_t place = 0;; place = KnownNames::Next(place)) {
    KnownName* known = names_.Last(place);
    if (*at == ' ' && known->IsAt(at + 1)) {
      ++at;
    } else {
      if (!IsXmlBlank(*at)) break;
      at = SkipBlanks(at + 1);
      if (*at == '/' || *at == '>') break;
      known = names_.Guess(at, place);
      if (!known->IsAt(at) && !AttributeName(at, *known)) return nullptr;
    }
    at += known->length();
    const Name* const attribute = known->name();
    at = at[-1] == '"' ? AttributeValue<'"'>(at, attribute) : AttributeValue<'\''>(at, attribute);
    if (at == nullptr) return nullptr;
  }
  const bool closed = *at == '/';
  if (closed) ++at;
  if (*at != '>') return Stop(at);
  ++at;
  Value text;
  char* const end = closed ? at : ShortText(at, name, text);
  Node* const element = builder_.Element(tag);
  if (element == nullptr) return Refuse();
  if (end == nullptr) return builder_.Open(element), at;
  element->text = text;
  return end;
}

// Most elements end right after a short text, often an int: gives the place after the end tag then, else null.
[[gnu::always_inline]] inline char* Reader::ShortText(char* at, const NameText& tag, Value& text) {
  int number = 0;
  std::size_t length = PlainIntAt(at, number);
  const bool is_int = length != 0 && at[length] == '<';
  if (!is_int) length = FirstStop<0x20, '<', '&', ']'>(at);
  if (at[length] != '<' || at[length + 1] != '/' || length > Value::kInPlace ||
      !builder_.StoresTextsAsTheyAre())
    return nullptr;
  text = is_int ? Value(number) : Value(length, TextWords::OfPadded(at, length));
  return PlainEnd(tag, at + length + 2);
}

[[gnu::noinline]] bool Reader::AttributeName(const char* at, KnownName& known) {
  const char* const start = at;
  const NameText name = NameAt<'='>(at);
  at = SkipBlanks(at + name.view.size());
  if (*at != '=') return Stop(at) != nullptr;
  at = SkipBlanks(at + 1);
  if (*at != '"' && *at != '\'') return Stop(at) != nullptr;
  known.Set(start, at + 1, builder_.AttributeName(name));
  return true;
}

template <char kQuote>
[[gnu::always_inline]] inline char* Reader::AttributeValue(char* at, const Name* name) {
  int number = 0;
  const std::size_t digits = PlainIntAt(at, number);
  if (digits != 0 && at[digits] == kQuote && builder_.ShortAttribute(name, Value(number)))
    return at + digits + 1;
  const std::size_t length = FirstStop<0x20, kQuote, '&', '<'>(at);
  if (at[length] == kQuote && length <= Value::kInPlace &&
      builder_.ShortAttribute(name, {length, TextWords::OfPadded(at, length)}))
    return at + length + 1;
  return LongValue<kQuote>(at, name);
}

template <char kQuote>
[[gnu::noinline]] char* Reader::LongValue(char* at, const Name* name) {
  char* const end = Skip<kQuote, '&', '<'>(at);
  DecodedText value{{at, end}, end};
  if (*end == '&' || IsXmlBlank(*end))
    value = Decoded(kQuote == '"' ? TextKind::kQuoted : TextKind::kInApostrophes, at, end);
  if (*value.end != kQuote) return Stop(value.end);
  const std::size_t length = value.text.size();
  if (length <= Value::kInPlace &&
      builder_.ShortAttribute(name, {length, TextWords::OfPadded(value.text.data(), length)}))
    return value.end + 1;
  return builder_.Attribute(name, value.text) ? value.end + 1 : Refuse();
}

// Not in place: if the token turns out to be incomplete, it will be read again.
DecodedText Reader::Decoded(TextKind kind, const char* text, char* from) {
  if (decoded_room_ != room_) {
    decoded_ = std::make_unique_for_overwrite<char[]>(room_);
    decoded_room_ = room_;
    decoded_end_ = decoded_.get();
  }
  const DecodedText decoded = Decode(kind, text, from, decoded_end_);
  decoded_end_ += decoded.text.size();
  return decoded;
}

char* Reader::EndTag(char* at) {
  const Name& tag = *builder_.tag();
  at += 2;
  if (!IsNameAt(tag, at)) return end_ - at < static_cast<std::ptrdiff_t>(tag.length) ? Stop(end_) : Refuse();
  at = SkipBlanks(at + tag.length);
  if (*at != '>') return Stop(at);
  return builder_.End() ? at + 1 : Refuse();
}

// ---- Comments and processing instructions.

char* Reader::Comment(char* at) {
  if (at[2] != '-' || at[3] != '-') return Stop(at);
  for (char* end = at + 4;; ++end) {
    end = Skip<'-'>(end);
    if (*end == '-' && end[1] == '-') {
      if (end[2] != '>') return Stop(end);
      ++builder_.passed_over().comments;
      return end + 3;
    }
    if (*end != '-' && !IsXmlBlank(*end)) return Stop(end);
  }
}

char* Reader::Instruction(char* at) {
  const std::string_view target(at + 2, NameLength<'?'>(at + 2));
  char* end = at + 2 + target.size();
  if (*end != '?' && !IsXmlBlank(*end)) return Stop(end);
  if (*end == '?' && end[1] != '>') return Stop(end);
  while (*end != '?' || end[1] != '>') {
    end = Skip<'?'>(end + 1);
    if (*end != '?' && !IsXmlBlank(*end)) return Stop(end);
  }
  if (IsReservedTarget(target) || !IsName(target)) return Refuse();
  ++builder_.passed_over().instructions;
  return end + 2;
}

}  // namespace

bool ReadPlain(XmlInput& input, XmlBuilder& builder, std::size_t piece) {
  return Reader(input, builder, piece).Read();
}

}  // namespace rytesavc
