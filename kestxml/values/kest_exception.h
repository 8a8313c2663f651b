// The exception family: the only channel by which the library reports a failure.
#pragma once

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// A failure of the machine or of the library's own logic, and the root of the family. It carries
/// a message, the path in the document where one is known, and the failure that caused it.
/// Thrown by value; immutable but for assignment.
class KESTXML_API CKestException {
 public:
  CKestException() = default;
  explicit CKestException(std::u16string message);
  CKestException(std::u16string message, CKestException const& inner);
  /// A @p path that is not empty also joins the message, as a last line "Path: ...".
  CKestException(std::u16string message, std::u16string path);
  CKestException(std::u16string message, std::u16string path, CKestException const& inner);

  CKestException(CKestException const& other);
  CKestException(CKestException&&) = default;
  /// Takes over message and inner failure but leaves the path as it was: the path text that
  /// travels is the one inside the message. A pointer that GetInnerException gave before stays
  /// valid until this object ends.
  CKestException& operator=(CKestException const& other);
  virtual ~CKestException();

  /// The message, with its "Path: ..." line if there is one, without inner failures.
  std::u16string GetMessageW() const { return m_message; }
  /// The path alone; empty when none was given.
  std::u16string GetPath() const { return m_path; }
  /// The messages of the whole chain, outermost first, a line feed between two.
  std::u16string GetFullMessage() const;
  /// The failure behind this one, owned by this object; null when there is none.
  CKestException const* GetInnerException() const { return m_inner.Get(); }

 protected:
  /// A new object of the same dynamic type, owned by the caller.
  virtual CKestException* Clone() const;

 private:
  // A counted failure behind another. It is immutable, so copies of a chain share it: cloning each
  // chain link by link would take quadratic time where every level of a document adds one.
  class Inner {
   public:
    Inner() = default;
    explicit Inner(CKestException* owned);
    Inner(Inner const& other);
    Inner(Inner&& other) noexcept : m_link(std::exchange(other.m_link, nullptr)) {}
    Inner& operator=(Inner other) noexcept {
      std::swap(m_link, other.m_link);
      return *this;
    }
    ~Inner();
    CKestException const* Get() const;

   private:
    struct Link;
    Link* m_link = nullptr;
  };

  std::u16string m_message;
  std::u16string m_path;
  Inner m_inner;
  std::vector<Inner> m_replacedInners;  // copies need none of them
};

/// A document or an object that does not satisfy the structure that its schema asks for.
class KESTXML_API CKestValidationException : public CKestException {
 public:
  CKestValidationException() = default;
  CKestValidationException(std::u16string message, std::u16string path);
  CKestValidationException(std::u16string message, std::u16string path,
                           CKestException const& inner);
  explicit CKestValidationException(CKestException const& other);

 protected:
  CKestValidationException* Clone() const override;

 private:
  std::u16string m_extra;  // belongs to the interface of the class; nothing fills or reads it
};

/// A value that does not fit its type or range.
class KESTXML_API CKestInvalidValueException : public CKestValidationException {
 public:
  CKestInvalidValueException() = default;
  explicit CKestInvalidValueException(std::u16string message);
  CKestInvalidValueException(std::u16string message, CKestException const& inner);
  explicit CKestInvalidValueException(CKestException const& other);

 protected:
  CKestInvalidValueException* Clone() const override;
};

/// An element or attribute in a namespace that the rule does not allow.
class KESTXML_API CKestInvalidNamespaceException : public CKestValidationException {
 public:
  CKestInvalidNamespaceException() = default;
  CKestInvalidNamespaceException(std::u16string message, std::u16string path);
  CKestInvalidNamespaceException(std::u16string message, std::u16string path,
                                 CKestException const& inner);
  explicit CKestInvalidNamespaceException(CKestException const& other);

 protected:
  CKestInvalidNamespaceException* Clone() const override;
};

/// An operation that the object's present state does not allow.
class KESTXML_API CKestInvalidStateException : public CKestException {
 public:
  CKestInvalidStateException() = default;
  explicit CKestInvalidStateException(std::u16string message);
  CKestInvalidStateException(std::u16string message, CKestException const& inner);
  explicit CKestInvalidStateException(CKestException const& other);

 protected:
  CKestInvalidStateException* Clone() const override;
};

/// A bad argument.
class KESTXML_API CKestInvalidParamException : public CKestException {
 public:
  CKestInvalidParamException() = default;
  explicit CKestInvalidParamException(std::u16string message);
  CKestInvalidParamException(std::u16string message, CKestException const& inner);
  explicit CKestInvalidParamException(CKestException const& other);

 protected:
  CKestInvalidParamException* Clone() const override;
};

/// A number too big for the integer type that was asked for.
class KESTXML_API CKestOverFlowException : public CKestException {
 public:
  CKestOverFlowException() = default;
  explicit CKestOverFlowException(std::u16string message);
  CKestOverFlowException(std::u16string message, CKestException const& inner);
  explicit CKestOverFlowException(CKestException const& other);

 protected:
  CKestOverFlowException* Clone() const override;
};

/// Prints GetFullMessage as UTF-8.
KESTXML_API std::ostream& operator<<(std::ostream& out, CKestException const& exception);

}  // namespace KestXmlLib20
