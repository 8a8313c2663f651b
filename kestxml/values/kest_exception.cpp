#include "kestxml/values/kest_exception.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <ostream>
#include <utility>

#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {
namespace {

std::u16string WithPath(std::u16string message, std::u16string const& path) {
  if (!path.empty()) message.append(u"\nPath: ").append(path);
  return message;
}

}  // namespace

struct CKestException::Inner::Link {
  std::atomic<std::int32_t> count{1};
  std::unique_ptr<CKestException> exception;
};

CKestException::Inner::Inner(CKestException* owned) {
  std::unique_ptr<CKestException> exception(owned);
  m_link = new Link;
  m_link->exception = std::move(exception);
}

CKestException::Inner::Inner(Inner const& other) : m_link(other.m_link) {
  if (m_link) m_link->count.fetch_add(1, std::memory_order_relaxed);
}

// Chains grow with the depth of a document, so they are taken apart in a loop. Only who holds the
// last reference touches a link, since copies may end in other threads.
CKestException::Inner::~Inner() {
  while (m_link && m_link->count.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    Link* const next = std::exchange(m_link->exception->m_inner.m_link, nullptr);
    delete m_link;
    m_link = next;
  }
}

CKestException const* CKestException::Inner::Get() const {
  return m_link ? m_link->exception.get() : nullptr;
}

CKestException::CKestException(std::u16string message) : m_message(std::move(message)) {}

CKestException::CKestException(std::u16string message, CKestException const& inner)
    : m_message(std::move(message)), m_inner(inner.Clone()) {}

CKestException::CKestException(std::u16string message, std::u16string path)
    : m_message(WithPath(std::move(message), path)), m_path(std::move(path)) {}

CKestException::CKestException(std::u16string message, std::u16string path,
                               CKestException const& inner)
    : m_message(WithPath(std::move(message), path)),
      m_path(std::move(path)),
      m_inner(inner.Clone()) {}

CKestException::CKestException(CKestException const& other)
    : m_message(other.m_message), m_path(other.m_path), m_inner(other.m_inner) {}

CKestException& CKestException::operator=(CKestException const& other) {
  if (this == &other) return *this;
  if (m_inner.Get()) m_replacedInners.push_back(m_inner);
  m_message = other.m_message;
  m_inner = other.m_inner;
  return *this;
}

CKestException::~CKestException() = default;

std::u16string CKestException::GetFullMessage() const {
  std::u16string text = m_message;
  for (auto const* link = m_inner.Get(); link; link = link->m_inner.Get()) {
    text.append(u"\n").append(link->m_message);
  }
  return text;
}

CKestException* CKestException::Clone() const {
  return new CKestException(*this);
}

CKestValidationException::CKestValidationException(std::u16string message, std::u16string path)
    : CKestException(std::move(message), std::move(path)) {}

CKestValidationException::CKestValidationException(std::u16string message, std::u16string path,
                                                   CKestException const& inner)
    : CKestException(std::move(message), std::move(path), inner) {}

CKestValidationException::CKestValidationException(CKestException const& other)
    : CKestException(other) {}

CKestValidationException* CKestValidationException::Clone() const {
  return new CKestValidationException(*this);
}

CKestInvalidValueException::CKestInvalidValueException(std::u16string message)
    : CKestValidationException(std::move(message), std::u16string()) {}

CKestInvalidValueException::CKestInvalidValueException(std::u16string message,
                                                       CKestException const& inner)
    : CKestValidationException(std::move(message), std::u16string(), inner) {}

CKestInvalidValueException::CKestInvalidValueException(CKestException const& other)
    : CKestValidationException(other) {}

CKestInvalidValueException* CKestInvalidValueException::Clone() const {
  return new CKestInvalidValueException(*this);
}

CKestInvalidNamespaceException::CKestInvalidNamespaceException(std::u16string message,
                                                               std::u16string path)
    : CKestValidationException(std::move(message), std::move(path)) {}

CKestInvalidNamespaceException::CKestInvalidNamespaceException(std::u16string message,
                                                               std::u16string path,
                                                               CKestException const& inner)
    : CKestValidationException(std::move(message), std::move(path), inner) {}

CKestInvalidNamespaceException::CKestInvalidNamespaceException(CKestException const& other)
    : CKestValidationException(other) {}

CKestInvalidNamespaceException* CKestInvalidNamespaceException::Clone() const {
  return new CKestInvalidNamespaceException(*this);
}

CKestInvalidStateException::CKestInvalidStateException(std::u16string message)
    : CKestException(std::move(message)) {}

CKestInvalidStateException::CKestInvalidStateException(std::u16string message,
                                                       CKestException const& inner)
    : CKestException(std::move(message), inner) {}

CKestInvalidStateException::CKestInvalidStateException(CKestException const& other)
    : CKestException(other) {}

CKestInvalidStateException* CKestInvalidStateException::Clone() const {
  return new CKestInvalidStateException(*this);
}

CKestInvalidParamException::CKestInvalidParamException(std::u16string message)
    : CKestException(std::move(message)) {}

CKestInvalidParamException::CKestInvalidParamException(std::u16string message,
                                                       CKestException const& inner)
    : CKestException(std::move(message), inner) {}

CKestInvalidParamException::CKestInvalidParamException(CKestException const& other)
    : CKestException(other) {}

CKestInvalidParamException* CKestInvalidParamException::Clone() const {
  return new CKestInvalidParamException(*this);
}

CKestOverFlowException::CKestOverFlowException(std::u16string message)
    : CKestException(std::move(message)) {}

CKestOverFlowException::CKestOverFlowException(std::u16string message, CKestException const& inner)
    : CKestException(std::move(message), inner) {}

CKestOverFlowException::CKestOverFlowException(CKestException const& other)
    : CKestException(other) {}

CKestOverFlowException* CKestOverFlowException::Clone() const {
  return new CKestOverFlowException(*this);
}

std::ostream& operator<<(std::ostream& out, CKestException const& exception) {
  return out << ToUtf8(exception.GetFullMessage());
}

}  // namespace KestXmlLib20
