// How much of a document the library is willing to take on.
#pragma once

#include <cstdint>
#include <string>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// Bounds on what one read or write may use, the same for every format. A bound of 0 is none.
/// What goes beyond a bound ends the operation in a CKestException that names it.
class KESTXML_API CSerializationLimits {
 public:
  /// Elements nested in each other, on reading and on writing. Default 1,000.
  std::uint32_t GetMaxDepth() const { return m_maxDepth; }
  void SetMaxDepth(std::uint32_t value) { m_maxDepth = value; }

  /// Attributes of one element. Default 10,000.
  std::uint32_t GetMaxAttributes() const { return m_maxAttributes; }
  void SetMaxAttributes(std::uint32_t value) { m_maxAttributes = value; }

  /// Namespace declarations of one element. Default 10,000.
  std::uint32_t GetMaxNamespaceDeclarations() const { return m_maxNamespaceDeclarations; }
  void SetMaxNamespaceDeclarations(std::uint32_t value) { m_maxNamespaceDeclarations = value; }

  /// Bytes that compressed input may grow to, and the XML that JSON is made into: a short text can
  /// ask for much indentation. Default 1 GiB.
  std::uint64_t GetMaxInflatedBytes() const { return m_maxInflatedBytes; }
  void SetMaxInflatedBytes(std::uint64_t value) { m_maxInflatedBytes = value; }

  /// Elements of one document, those included that an element callback throws away. Default 0,
  /// none.
  std::uint64_t GetMaxElements() const { return m_maxElements; }
  void SetMaxElements(std::uint64_t value) { m_maxElements = value; }

  /// 16-bit units of a namespace URI. Every name in the namespace carries it from the parser, so a
  /// long one costs time again for each element. Default 10,000.
  std::uint32_t GetMaxNamespaceLength() const { return m_maxNamespaceLength; }
  void SetMaxNamespaceLength(std::uint32_t value) { m_maxNamespaceLength = value; }

  /// With unknown elements ignored: elements that groups, which turn out not to be there, read or
  /// pass over and give back to their parents, counted again each time. Default 10,000,000.
  std::uint64_t GetMaxAbandonedElements() const { return m_maxAbandonedElements; }
  void SetMaxAbandonedElements(std::uint64_t value) { m_maxAbandonedElements = value; }

  // Each throws the CKestException of its bound; @p path is where in the document, or empty.
  [[noreturn]] static void ThrowTooDeep(std::uint32_t bound, std::u16string path);
  [[noreturn]] static void ThrowTooManyAttributes(std::uint32_t bound, std::u16string path);
  [[noreturn]] static void ThrowTooManyNamespaceDeclarations(std::uint32_t bound,
                                                             std::u16string path);
  [[noreturn]] static void ThrowTooManyElements(std::uint64_t bound, std::u16string path);
  [[noreturn]] static void ThrowNamespaceTooLong(std::uint32_t bound, std::u16string path);
  [[noreturn]] static void ThrowTooManyAbandoned(std::uint64_t bound, std::u16string path);

 private:
  std::uint32_t m_maxDepth = 1'000;
  std::uint32_t m_maxAttributes = 10'000;
  std::uint32_t m_maxNamespaceDeclarations = 10'000;
  std::uint64_t m_maxInflatedBytes = std::uint64_t{1} << 30;
  std::uint64_t m_maxElements = 0;
  std::uint32_t m_maxNamespaceLength = 10'000;
  std::uint64_t m_maxAbandonedElements = 10'000'000;
};

/// True when @p count is more than @p bound allows; a bound of 0 allows anything.
constexpr bool ExceedsLimit(std::uint64_t count, std::uint64_t bound) {
  return bound != 0 && count > bound;
}

}  // namespace KestXmlLib20
