#include "kestxml/binding/serialization_context.h"

#include <algorithm>

#include "kestxml/binding/attribute_col.h"
#include "kestxml/json/json_context.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

std::u16string TextOrEmpty(char16_t const* text) {
  return text ? text : u"";
}

bool IsBlankOrTab(char16_t unit) {
  return unit == u' ' || unit == u'\t';
}

constexpr char16_t kUnknownWhileMissing[] =
    u"The parser can only ignore additional elements, or ignore the fact that some required ones "
    u"are missing, you can not ignore both\nSet IgnoreMissingMandatoryElements to false before "
    u"setting IgnoreUnknownElements to true";
constexpr char16_t kMissingWhileUnknown[] =
    u"The parser can only ignore additional elements, or ignore the fact that some required ones "
    u"are missing, you can not ignore both\nSet IgnoreUnknownElements to false before setting "
    u"IgnoreMissingMandatoryElements to true";

}  // namespace

CSerializationContext::CSerializationContext() = default;
CSerializationContext::CSerializationContext(CSerializationContext const&) = default;
CSerializationContext& CSerializationContext::operator=(CSerializationContext const&) = default;
CSerializationContext::~CSerializationContext() = default;

// Made on first use and never destroyed, so that static objects of generated code may ask for it,
// whether they come or go.
CSerializationContext& CSerializationContext::GetDefaultContext() {
  static auto& context = *new CSerializationContext;
  return context;
}

CJsonContext* CSerializationContext::GetJsonContext() const {
  if (!m_jsonContext) m_jsonContext = std::make_shared<CJsonContext>();
  return m_jsonContext.get();
}

CJsonContext const& CSerializationContext::FindJsonContext() const {
  static auto const& defaults = *new CJsonContext;
  return m_jsonContext ? *m_jsonContext : defaults;
}

void CSerializationContext::SetDefaultNamespaceURI(char16_t const* uri) {
  m_defaultNamespaceURI = TextOrEmpty(uri);
}

CSmartPtr<CAttributeCol> CSerializationContext::GetAdditionalRootAttributes() const {
  if (!m_additionalRootAttributes) {
    m_additionalRootAttributes = new CAttributeCol(u"", u"##any", u"");
  }
  return m_additionalRootAttributes;
}

void CSerializationContext::SetInLineSchema(char16_t const* text) {
  m_inLineSchema = TextOrEmpty(text);
}

void CSerializationContext::SetIgnoreMissingMandatoryElements(bool value) {
  if (value && m_ignoreUnknownElements) throw CKestInvalidStateException(kMissingWhileUnknown);
  m_ignoreMissingMandatoryElements = value;
}

void CSerializationContext::SetIgnoreUnknownElements(bool value) {
  if (value && m_ignoreMissingMandatoryElements) {
    throw CKestInvalidStateException(kUnknownWhileMissing);
  }
  m_ignoreUnknownElements = value;
}

bool CSerializationContext::GetIgnoreNamespaces() const {
  return m_ignoreNamespaces || m_schemaType == SchemaType::DocumentTypeDefinition;
}

void CSerializationContext::SetIndentChars(char16_t const* value) {
  std::u16string text = TextOrEmpty(value);
  if (!std::all_of(text.begin(), text.end(), IsBlankOrTab)) {
    throw CKestInvalidParamException(
        u"IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
  }
  m_indentChars = std::move(text);
}

}  // namespace KestXmlLib20
