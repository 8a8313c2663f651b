#include "kestxml/json/json_text_reader.h"

#include <utility>

#include "kestxml/json/internal/json_tokenizer.h"
#include "kestxml/json/json_context.h"
#include "kestxml/json/json_reader_handler.h"

namespace KestXmlLib20 {
namespace {

using internal::CJsonTokenizer;

// Reads values one inside the other, as deep as @p maxDepth allows. Each operation begins at the
// first unit of what it reads and ends behind it and the white space that follows.
class Parser {
 public:
  Parser(CJsonTokenizer& tokens, IJsonReaderHandler& handler, std::int32_t maxDepth)
      : m_tokens(tokens), m_handler(handler), m_maxDepth(maxDepth) {}

  void ReadValue(std::int32_t depth);

 private:
  void ReadObject(std::int32_t depth);
  void ReadMember(std::int32_t depth);
  void RequireMoreOfObject(bool isThere) const;
  void ReadArray(std::int32_t depth);
  void RequireMoreOfArray(bool isThere) const;

  CJsonTokenizer& m_tokens;
  IJsonReaderHandler& m_handler;
  std::int32_t m_maxDepth;
};

void Parser::ReadValue(std::int32_t depth) {
  if (depth + 1 > m_maxDepth) {
    throw m_tokens.Failure(u"JSON exceeded depth limit at line %d, position %d.");
  }
  switch (m_tokens.Current()) {
    case u'{':
      m_handler.OnStartObject(depth);
      ReadObject(depth + 1);
      return m_handler.OnEndObject();
    case u'[':
      m_handler.OnStartArray(depth);
      ReadArray(depth + 1);
      return m_handler.OnEndArray();
    case u'"':
      return m_handler.OnString(m_tokens.ReadString());
    case u'n':
      m_tokens.ReadNull();
      return m_handler.OnNull();
    case u't':
      m_tokens.ReadTrue();
      return m_handler.OnBoolean(true);
    case u'f':
      m_tokens.ReadFalse();
      return m_handler.OnBoolean(false);
    case u'-':
    case u'0':
    case u'1':
    case u'2':
    case u'3':
    case u'4':
    case u'5':
    case u'6':
    case u'7':
    case u'8':
    case u'9':
      return m_handler.OnNumber(m_tokens.ReadNumber());
    default:
      throw m_tokens.FailureOnUnit(
          u"Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '%c' at "
          u"line %d, position %d.");
  }
}

void Parser::ReadObject(std::int32_t depth) {
  if (!m_tokens.NextToken()) {  // the brace is doubled in this message alone
    throw m_tokens.Failure(
        u"Unexpected End of File. Expected Object terminator character '}}' at line %d, "
        u"position %d.");
  }
  if (m_tokens.Current() != u'}') {
    ReadMember(depth);
    while (m_tokens.Current() == u',') {
      RequireMoreOfObject(m_tokens.NextToken());
      ReadMember(depth);
    }
    if (m_tokens.Current() != u'}') {
      throw m_tokens.FailureOnUnit(
          u"Expected Object separator character ',', found '%c' at line %d, position %d.");
    }
  }
  m_tokens.NextToken();
}

// Ends before the end of the text, since the object must end first.
void Parser::ReadMember(std::int32_t depth) {
  if (m_tokens.Current() != u'"') {
    throw m_tokens.FailureOnUnit(
        u"Expected quotation mark character '\"' before Name, found '%c' at line %d, position "
        u"%d.");
  }
  m_handler.OnName(m_tokens.ReadString());
  if (m_tokens.IsAtEnd()) {
    throw m_tokens.Failure(
        u"Unexpected End of File. Expected Object Name/Value separator character ':' at line %d, "
        u"position %d.");
  }
  if (m_tokens.Current() != u':') {
    throw m_tokens.FailureOnUnit(
        u"Expected Object Name/Value separator character ':', found '%c' at line %d, position "
        u"%d.");
  }
  if (!m_tokens.NextToken()) {
    throw m_tokens.Failure(
        u"Unexpected End of File. Expected Object Value at line %d, position %d.");
  }
  ReadValue(depth);
  RequireMoreOfObject(!m_tokens.IsAtEnd());
}

void Parser::RequireMoreOfObject(bool isThere) const {
  if (!isThere) {
    throw m_tokens.Failure(
        u"Unexpected End of File. Expected Object terminator character '}' at line %d, position "
        u"%d.");
  }
}

void Parser::ReadArray(std::int32_t depth) {
  RequireMoreOfArray(m_tokens.NextToken());
  if (m_tokens.Current() != u']') {
    for (;;) {
      ReadValue(depth);
      RequireMoreOfArray(!m_tokens.IsAtEnd());
      if (m_tokens.Current() == u']') break;
      if (m_tokens.Current() != u',') {
        throw m_tokens.FailureOnUnit(
            u"Expected Array separator character ',', found '%c' at line %d, position %d.");
      }
      RequireMoreOfArray(m_tokens.NextToken());
    }
  }
  m_tokens.NextToken();
}

void Parser::RequireMoreOfArray(bool isThere) const {
  if (!isThere) {
    throw m_tokens.Failure(
        u"Unexpected End of File. Expected Array terminator character ']' at line %d, position "
        u"%d.");
  }
}

}  // namespace

IJsonReaderHandler::~IJsonReaderHandler() = default;
IErrorPathProvider::~IErrorPathProvider() = default;

CJsonTextReader::CJsonTextReader(std::u16string_view text, CJsonContext const& context,
                                 std::unique_ptr<IJsonReaderHandler> handler)
    : m_pHandler(std::move(handler)),
      m_allowComments(context.GetAllowComments()),
      m_rootElementName(context.GetRootElementName()),
      m_text(text) {}

CJsonTextReader::~CJsonTextReader() = default;

void CJsonTextReader::Read() {
  IJsonReaderHandler& handler = *m_pHandler;
  CJsonTokenizer tokens(m_text, m_allowComments, dynamic_cast<IErrorPathProvider*>(&handler));
  handler.OnStartDocument();
  if (!m_rootElementName.empty()) {
    handler.OnStartObject(0);
    handler.OnName(m_rootElementName);
  }
  if (tokens.NextToken()) Parser(tokens, handler, m_maxDepth).ReadValue(0);
  if (!m_rootElementName.empty()) handler.OnEndObject();
  handler.OnEndDocument();
}

}  // namespace KestXmlLib20
