#include "plain_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>

#include "plain_scan.h"
#include "rytree_host/utf8.h"

namespace rytesavc {

namespace {

// A token that is longer is left to Expat.
constexpr std::size_t kLongestToken = std::size_t{1} << 28;
// A token that does not fit is looked at anew with each piece: from here on the pieces grow, so that the work stays
// linear.
constexpr std::size_t kSmallPiece = std::size_t{1} << 18;
// Nothing here looks further ahead to tell whether a byte is in its place.
constexpr std::ptrdiff_t kLookahead = 32;

// ---- What is written otherwise than it is meant.

enum class Kind { kText, kValue, kCData };

struct Reference {
  Word text;  // behind the '&'
  Word mask;
  std::size_t length;
  char stands_for;
};
constexpr Reference Named(std::string_view text, char stands_for) {
  return {WordOf(text), FirstBytes(text.size()), text.size(), stands_for};
}
constexpr Reference kReferences[] = {Named("amp;", '&'), Named("lt;", '<'), Named("gt;", '>'),
                                     Named("quot;", '"'), Named("apos;", '\'')};

// Writes the character that a number stands for. Null if that is none of XML.
char* PutNumbered(std::string_view digits, char* to) {
  const bool hexadecimal = digits.starts_with('x');
  if (hexadecimal) digits.remove_prefix(1);
  std::uint32_t code = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, code, hexadecimal ? 16 : 10);
  if (error != std::errc() || stop != end || !IsXmlCharacter(code)) return nullptr;
  std::string character;
  utf8::append(character, code);
  return std::copy(character.begin(), character.end(), to);
}

// Writes what a reference stands for, and moves behind it from behind its '&'. Null if it is none that is known.
char* PutReference(const char*& from, const char* end, char* to) {
  const Word text = LoadWord(from);
  for (const auto& [name, mask, length, stands_for] : kReferences) {
    if ((text & mask) != name) continue;
    from += length;
    *to = stands_for;
    return to + 1;
  }
  const std::string_view rest(from, end);
  const std::size_t length = rest.find(';');
  if (length == rest.npos || rest[0] != '#') return nullptr;
  from += length + 1;
  return PutNumbered(rest.substr(1, length - 1), to);
}

// Writes a text with what its references and line ends stand for, which is never longer: it may go to where the text
// is. Gives the end of what was written, null for a reference that is not known.
char* Decode(const char* from, const char* end, Kind kind, char* to) {
  while (from != end) {
    const char c = *from++;
    if (static_cast<unsigned char>(c) > '&') {
      *to++ = c;
    } else if (c == '&' && kind != Kind::kCData) {
      to = PutReference(from, end, to);
      if (to == nullptr) return nullptr;
    } else if (c == '\r' || c == '\n' || c == '\t') {
      if (c == '\r' && from != end && *from == '\n') ++from;
      *to++ = kind == Kind::kValue ? ' ' : c == '\r' ? '\n' : c;
    } else {
      *to++ = c;
    }
  }
  return to;
}

template <char... kEnds>
NameText NameAt(const char* at) {
  const std::size_t length = NameLength<kEnds...>(at);
  return {{at, length}, TextWords::OfPadded(at, length)};
}

// ---- The XML declaration.

// Takes ` name="value"` off the text. False, and nothing taken, if it does not start with that.
bool TakePart(std::string_view& text, std::string_view name, std::string_view& value) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == 0 || start == text.npos || text.substr(start, name.size()) != name) return false;
  std::string_view rest = text.substr(start + name.size());
  const auto skip = [&] { rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size())); };
  skip();
  if (!rest.starts_with('=')) return false;
  rest.remove_prefix(1);
  skip();
  if (!rest.starts_with('"') && !rest.starts_with('\'')) return false;
  const std::size_t end = rest.find(rest[0], 1);
  if (end == rest.npos) return false;
  value = rest.substr(1, end - 1);
  text = rest.substr(end + 1);
  return true;
}

// Between "<?xml" and "?>": only what nearly all files say.
bool IsPlainDeclaration(std::string_view text) {
  std::string_view value;
  if (!TakePart(text, "version", value) || value != "1.0") return false;
  if (TakePart(text, "encoding", value)) {
    constexpr std::string_view kUtf8 = "utf-8";
    const auto same = [](char a, char b) { return (a | 0x20) == b || a == b; };
    if (!std::equal(value.begin(), value.end(), kUtf8.begin(), kUtf8.end(), same)) return false;
  }
  if (TakePart(text, "standalone", value) && value != "yes" && value != "no") return false;
  return std::all_of(text.begin(), text.end(), IsXmlBlank);
}

bool IsReservedTarget(std::string_view target) {
  return target.size() == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' && (target[2] | 0x20) == 'l';
}

// ---- The reader.

// An attribute's name, the '=' behind it and the quotation mark. Most elements have the same attributes in the same order.
struct KnownName {
  void Set(const char* at, const char* end, const Name* known) {
    name = known;
    length = static_cast<std::size_t>(end - at);
    if (length > TextWords::kBytes) {
      mask = kNothing;
      words = {};
    } else {
      mask = {FirstBytes(std::min(length, sizeof(Word))), FirstBytes(std::max(length, sizeof(Word)) - sizeof(Word))};
      words = TextWords::OfPadded(at, length);
    }
  }
  bool IsAt(const char* at) const {
    return (((LoadWord(at) ^ words.low) & mask.low) | ((LoadWord(at + sizeof(Word)) ^ words.high) & mask.high)) == 0;
  }

  static constexpr TextWords kNothing{~Word{0}, ~Word{0}};  // NULs are no name
  TextWords words;
  TextWords mask = kNothing;
  std::size_t length = 0;
  const Name* name = nullptr;
  KnownName* next = nullptr;
};

class Reader {
 public:
  Reader(XmlInput& input, XmlBuilder& builder, std::size_t piece)
      : input_(input), builder_(builder), tree_(builder.tree()), piece_(piece) {
    for (std::size_t i = 0; i < known_.size(); ++i) known_[i].next = &known_[(i + 1) % known_.size()];
  }

  bool Read();

 private:
  enum class Answer { kTaken, kMore, kRefused };

  bool Fill();
  void TakeTokens();
  // The functions below take one token, which starts at `at`, and give where the next one starts; null, and an answer,
  // if it is not all there or not to be taken.
  char* Start(char* at);
  char* Outside(char* at);
  char* Inside(char* at);
  char* Text(char* at);
  bool IsLayout(char next) const;
  char* LongText(char* at);
  char* CData(char* at);
  char* StartTag(char* at);
  char* AttributeName(char* at, KnownName& known);
  template <char kQuote>
  char* Value(char* at, const Name* name);
  template <char kQuote>
  char* LongValue(char* at, const Name* name);
  std::string_view DecodedValue(const char* text, const char* end);
  char* EndTag(char* at);
  char* Comment(char* at);
  char* Instruction(char* at);

  char* Give(Answer answer) {
    answer_ = answer;
    return nullptr;
  }
  char* Refuse() { return Give(Answer::kRefused); }
  // The byte is not in its place, unless the text goes on behind it in the next piece.
  char* Stop(const char* at) {
    return Give(end_ - at < kLookahead && !last_ ? Answer::kMore : Answer::kRefused);
  }

  XmlInput& input_;
  XmlBuilder& builder_;
  Tree& tree_;
  Answer answer_ = Answer::kMore;
  bool started_ = false;
  bool last_ = false;  // whether all of the text has been read
  std::size_t piece_;
  std::size_t fed_ = 0;

  std::array<char, 1024> small_buffer_;
  std::unique_ptr<char[]> large_buffer_;
  char* buffer_ = small_buffer_.data();
  std::size_t room_ = small_buffer_.size();
  char* at_ = buffer_;   // what is not yet taken
  char* end_ = buffer_;  // has a NUL

  std::unique_ptr<char[]> decoded_;  // values of the start tag at hand; as much room as the buffer has
  std::size_t decoded_room_ = 0;
  char* decoded_end_ = nullptr;
  std::array<KnownName, 8> known_;               // by their places among the attributes
};

bool Reader::Read() {
  do {
    if (!Fill()) return false;
    TakeTokens();
    if (fed_ < input_.size()) tree_.ExpectWhole(fed_, input_.size());
  } while (answer_ == Answer::kMore);
  return answer_ == Answer::kTaken;
}

// Puts the next piece behind what was not taken of the last one.
bool Reader::Fill() {
  const auto rest = static_cast<std::size_t>(end_ - at_);
  if (rest > kLongestToken) return false;
  if (rest >= kSmallPiece) piece_ = rest;
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
  while (at != nullptr) {
    at_ = at;
    at = builder_.is_open() ? Inside(at) : Outside(at);
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

// Before the top element and behind it.
char* Reader::Outside(char* at) {
  at = SkipBlanks(at);
  if (at == end_) {
    at_ = at;
    return Give(!last_ ? Answer::kMore : builder_.has_top() ? Answer::kTaken : Answer::kRefused);
  }
  if (*at != '<') return Stop(at);
  if (at[1] == '!') return Comment(at);
  if (at[1] == '?') return Instruction(at);
  return builder_.has_top() ? Stop(at) : StartTag(at);
}

char* Reader::Inside(char* at) {
  if (*at != '<') {
    at = Text(at);
    if (at == nullptr) return nullptr;
    at_ = at;
  }
  switch (at[1]) {
    case '/':
      return EndTag(at);
    case '!':
      return at[2] == '[' ? CData(at) : Comment(at);
    case '?':
      return Instruction(at);
    default:
      return StartTag(at);
  }
}

// ---- Texts.

char* Reader::Text(char* at) {
  char* const end = SkipLayout(at);
  if (*end == '<' && IsLayout(end[1])) return end;
  const std::size_t length = FirstStop<0x20, '<', '&', ']'>(at);
  if (at[length] == '<' && at[length + 1] == '/' && length <= Value::kInPlace &&
      builder_.ShortLastText(length, TextWords::OfPadded(at, length)))
    return at + length;
  return LongText(at);
}

// Whether white space that such a byte behind a '<' follows is layout.
bool Reader::IsLayout(char next) const {
  return next != '!' && next != '?' && next != '\0' && builder_.IsLayout(next == '/');
}

char* Reader::LongText(char* at) {
  char* coded = nullptr;  // where the first is that does not stand for itself
  char* end = at;
  for (; *(end = Skip<'<', '&', ']'>(end)) != '<'; ++end) {
    if (*end == '&' || *end == '\r') {
      if (coded == nullptr) coded = end;
    } else if (*end == ']' ? end[1] == ']' && end[2] == '>' : !IsXmlBlank(*end)) {
      return Stop(end);
    }
  }
  const char* const text_end = coded != nullptr ? Decode(coded, end, Kind::kText, coded) : end;
  if (text_end == nullptr) return Refuse();
  const std::string_view text(at, text_end);
  return (end[1] == '/' ? builder_.LastText(text) : builder_.Text(text)) ? end : Refuse();
}

char* Reader::CData(char* at) {
  constexpr std::string_view kStart = "<![CDATA[";
  if (!std::string_view(at, end_).starts_with(kStart)) return Stop(at);
  char* const text = at + kStart.size();
  bool coded = false;
  char* end = text;
  for (; *(end = Skip<']'>(end)) != ']' || end[1] != ']' || end[2] != '>'; ++end) {
    if (*end == '\r') coded = true;
    if (*end != ']' && !IsXmlBlank(*end)) return Stop(end);
  }
  builder_.Text({text, coded ? Decode(text, end, Kind::kCData, text) : end});
  return end + 3;
}

// ---- Tags.

char* Reader::StartTag(char* at) {
  const NameText text = NameAt<'/', '>'>(at + 1);
  const std::uint32_t hash = Tree::Hash(text.view, text.words);
  const Name* tag = tree_.FindName(text.view, text.words, hash);
  at += 1 + text.view.size();
  builder_.Begin();
  decoded_end_ = decoded_.get();
  for (KnownName* known = known_.data(); IsXmlBlank(*at); known = known->next) {
    at = SkipBlanks(at + 1);
    if (known->IsAt(at)) {
      at += known->length;
    } else {
      if (*at == '/' || *at == '>') break;
      at = AttributeName(at, *known);
      if (at == nullptr) return nullptr;
    }
    at = at[-1] == '"' ? Value<'"'>(at, known->name) : Value<'\''>(at, known->name);
    if (at == nullptr) return nullptr;
  }
  const bool closed = *at == '/';
  if (closed) ++at;
  if (*at != '>') return Stop(at);
  if (tag == nullptr) tag = tree_.InternNew(text.view, hash);
  if (!builder_.Start(tag) || (closed && !builder_.End())) return Refuse();
  return at + 1;
}

[[gnu::noinline]] char* Reader::AttributeName(char* at, KnownName& known) {
  char* const start = at;
  const NameText name = NameAt<'='>(at);
  at = SkipBlanks(at + name.view.size());
  if (*at != '=') return Stop(at);
  at = SkipBlanks(at + 1);
  if (*at != '"' && *at != '\'') return Stop(at);
  ++at;
  known.Set(start, at, builder_.AttributeName(name));
  return at;
}

template <char kQuote>
[[gnu::always_inline]] inline char* Reader::Value(char* at, const Name* name) {
  const std::size_t length = FirstStop<0x20, kQuote, '&', '<'>(at);
  if (at[length] == kQuote && length <= rytesavc::Value::kInPlace &&
      builder_.ShortAttribute(name, length, TextWords::OfPadded(at, length)))
    return at + length + 1;
  return LongValue<kQuote>(at, name);
}

template <char kQuote>
[[gnu::noinline]] char* Reader::LongValue(char* at, const Name* name) {
  bool coded = false;
  char* end = at;
  for (; *(end = Skip<kQuote, '&', '<'>(end)) != kQuote; ++end) {
    if (*end != '&' && !IsXmlBlank(*end)) return Stop(end);
    coded = true;
  }
  const std::string_view value = coded ? DecodedValue(at, end) : std::string_view(at, end);
  return value.data() != nullptr && builder_.Attribute(name, value) ? end + 1 : Refuse();
}

// The tag may yet turn out to be cut: what is in the buffer must stay.
std::string_view Reader::DecodedValue(const char* text, const char* end) {
  if (decoded_room_ != room_) {
    decoded_ = std::make_unique_for_overwrite<char[]>(room_);
    decoded_room_ = room_;
    decoded_end_ = decoded_.get();
  }
  char* const start = decoded_end_;
  decoded_end_ = Decode(text, end, Kind::kValue, start);
  return decoded_end_ != nullptr ? std::string_view(start, decoded_end_) : std::string_view();
}

char* Reader::EndTag(char* at) {
  const Name* const tag = builder_.tag();
  char* const name = at + 2;
  if (tag->length <= TextWords::kBytes) {
    if (!(TextWords::OfPadded(name, tag->length) == tag->words())) return Stop(at);
  } else if (const std::string_view rest(name, end_); !rest.starts_with(tag->view())) {
    return rest.size() < tag->length ? Stop(end_) : Refuse();
  }
  at = SkipBlanks(name + tag->length);
  if (*at != '>') return Stop(at);
  return builder_.End() ? at + 1 : Refuse();
}

// ---- What is passed over.

char* Reader::Comment(char* at) {
  if (at[2] != '-' || at[3] != '-') return Stop(at);
  for (char* end = at + 4;; ++end) {
    end = Skip<'-'>(end);
    if (*end == '-' && end[1] == '-') return end[2] == '>' ? end + 3 : Stop(end);
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
  return IsReservedTarget(target) || !IsName(target) ? Refuse() : end + 2;
}

}  // namespace

char* SkipBeyondAscii(char* at) {
  do {
    const std::size_t character = CharacterLength({at, kPadding});
    if (character == 0) return at;
    at += character;
  } while (static_cast<signed char>(*at) < 0);
  return at;
}

bool ReadPlain(XmlInput& input, XmlBuilder& builder, std::size_t piece) {
  return Reader(input, builder, piece).Read();
}

}  // namespace rytesavc
