// What all classes of the order schema share: their namespace, when their tables are built, and the
// steps that their setters have in common. A generator emits such a base once for a schema.
#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "examples/orders/property_access.h"
#include "examples/orders/simple_types.h"
#include "kestxml/kestxml.h"

namespace KestOrders {

/// The target namespace of order.xsd.
inline constexpr char16_t kOrderNamespace[] = u"urn:example:purchase-order";

/// The base of the generated classes. A class adds its properties with getters and setters, and the
/// three operations by which the library reaches them: GetTables, AccessProperty and Init.
class COrderClass : public KestXmlLib20::CXmlGeneratedClass {
 public:
  // A copy would carry the reference count of its source, and share its objects.
  COrderClass(COrderClass const&) = delete;
  COrderClass& operator=(COrderClass const&) = delete;

  using CXmlObjectBase::GetBase;
  CXmlObjectBase* GetBase() override { return this; }
  /// The library passes the data() of the view on as a terminated string, so it must be one: give
  /// a literal or a std::u16string, never a part of a longer text.
  std::u16string_view GetNamespace() const override { return kOrderNamespace; }

  KestXmlLib20Data::CParentElementInfo* GetClassInfo() const override;
  KestXmlLib20Data::CElementInfo** GetClassElementInfo() const override;
  KestXmlLib20Data::CAttributeInfo** GetClassAttributeInfo() const override;

 protected:
  /// The three tables of one class.
  struct Tables {
    KestXmlLib20Data::CParentElementInfo* classInfo;
    KestXmlLib20Data::CElementInfo** elements;
    KestXmlLib20Data::CAttributeInfo** attributes;
  };

  /// Holds the tables of a class: built by the first thread that asks for them, read by all threads
  /// without a lock from then on, given back when the program ends. Each class has one of these, a
  /// static object.
  class CTables {
   public:
    using Build = Tables (*)();
    constexpr explicit CTables(Build build) : m_build(build) {}
    CTables(CTables const&) = delete;
    CTables& operator=(CTables const&) = delete;
    ~CTables();

    Tables const& Get();

   private:
    Build m_build;
    std::atomic<bool> m_isBuilt{false};
    Tables m_tables{};
  };

  /// The tables of the class that the object is of.
  virtual CTables& GetTables() const = 0;

  explicit COrderClass(char16_t const* elementName) { SetElementName(elementName); }
  std::u16string_view GetTargetNamespace() const override { return kOrderNamespace; }

  // Parts of tables. The entries of a table come from new, the tables themselves from malloc:
  // CleanMetaData gives them back accordingly.

  using ElementEntries = std::vector<KestXmlLib20Data::CElementInfo*>;
  using AttributeEntries = std::vector<KestXmlLib20Data::CAttributeInfo*>;

  static Tables MakeTables(KestXmlLib20Data::CParentElementInfo* classInfo,
                           ElementEntries const& elements, AttributeEntries const& attributes);

  /// The record of a class that has an element of its own and no text.
  static KestXmlLib20Data::CParentElementInfo* ElementClass(
      KestXmlLib20Data::XmlElementGroupType group, char16_t const* name,
      bool hasBaseClasses = false);
  /// The record of a class whose element holds a value of @p type, the property @p valueIndex.
  static KestXmlLib20Data::CParentElementInfo* SimpleContentClass(char16_t const* name,
                                                                  std::int32_t valueIndex,
                                                                  SimpleType const& type);

  /// An entry for an element of a simple type; @p Info is one of the ...Prim... classes.
  template <typename Info>
  static KestXmlLib20Data::CElementInfo* Element(char16_t const* name, std::int32_t propertyIndex,
                                                 SimpleType const& type) {
    return new Info(name, kOrderNamespace, propertyIndex, false, type.itemType, type.format,
                    type.whitespaceRule, type.GetRestrictions(), nullptr);
  }
  /// An entry for an attribute of a simple type. Attributes are in no namespace. The default is not
  /// applied on reading; it is what may be left out on writing.
  static KestXmlLib20Data::CAttributeInfo* Attribute(char16_t const* name,
                                                     std::int32_t propertyIndex, bool optional,
                                                     SimpleType const& type,
                                                     char16_t const* defaultValue = nullptr);

  // Steps of setters.

  /// Gives @p value back if it is one of @p type.
  /// @throws KestXmlLib20::CKestException when its facets do not allow the value, with the name of
  ///   the property; KestXmlLib20::CKestInvalidParamException for a date of another type.
  template <typename T>
  static T const& Checked(char16_t const* name, T const& value, SimpleType const& type) {
    KestXmlLib20::KestVariant variant;
    Store(variant, value);
    if (variant.GetTypeAsEnum() != type.itemType) ThrowOtherKind(name);
    KestXmlLib20::CheckPrimitiveRestriction(name, variant, type.itemType, type.GetRestrictions());
    return value;
  }

  template <typename T>
  static std::optional<T> const& Checked(char16_t const* name, std::optional<T> const& value,
                                         SimpleType const& type) {
    if (value) Checked(name, *value, type);
    return value;
  }

  [[noreturn]] static void ThrowOtherKind(char16_t const* name);

  /// What a setter of a member of a choice does first: selects the member if it is to have a value,
  /// else gives the selection up if the member has it.
  /// @throws KestXmlLib20::CKestInvalidStateException when another member is selected and this one
  ///   is to have a value.
  void SelectInChoice(char16_t const* name, bool hasValue, std::u16string& selection);

  /// What a setter of a mandatory object does first.
  /// @throws KestXmlLib20::CKestInvalidParamException for null, and for an object that was made for
  ///   another element.
  static void CheckObject(char16_t const* name, CXmlObjectBase* value);

  /// For the default case in AccessProperty.
  [[noreturn]] static void ThrowUnknownProperty(std::int32_t propertyIndex);
};

}  // namespace KestOrders
