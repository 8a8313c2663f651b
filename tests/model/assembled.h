// A class that a test puts together, for what no class of the model has.
#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <utility>

#include "kestxml/values/kest_exception.h"
#include "tests/model/model_class.h"
#include "tests/model/outcome.h"

namespace KestModel {

/// Tables with an owner.
class CDesign {
 public:
  /// A sequence with the name O.
  CDesign(CElementInfo* entry) : CDesign(Sequence(), {entry}) {}
  CDesign(std::initializer_list<CAttributeInfo*> attributes)
      : CDesign(Sequence(), {}, attributes) {}
  CDesign(CParentElementInfo* classInfo, std::initializer_list<CElementInfo*> elements,
          std::initializer_list<CAttributeInfo*> attributes = {})
      : m_tables{classInfo, Table(elements), Table(attributes)} {}
  CDesign(CDesign const&) = delete;
  CDesign& operator=(CDesign const&) = delete;
  ~CDesign();
  Tables const& GetTables() const { return m_tables; }

 private:
  static CParentElementInfo* Sequence() {
    return Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"O");
  }

  Tables m_tables;
};

/// The number of a property that can be neither read nor set.
inline constexpr std::int32_t kRefused = -1;

/// Its properties are variants: unset, unless @p init says otherwise.
class CAssembled : public CXmlGeneratedClass {
 public:
  using Properties = std::map<std::int32_t, KestVariant>;
  using InitProperties = std::function<void(Properties&)>;

  explicit CAssembled(CDesign const& design, InitProperties init = {})
      : m_design(design), m_init(std::move(init)) {
    SetElementName(design.GetTables().classInfo->GetElementName().c_str());
    Init();
  }

  Properties properties;

  using CXmlObjectBase::GetBase;
  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override { return u""; }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    if (propertyIndex == kRefused) throw CKestException(u"refused");
    Exchange(properties[propertyIndex], read, value);
  }
  CParentElementInfo* GetClassInfo() const override { return m_design.GetTables().classInfo; }
  CElementInfo** GetClassElementInfo() const override { return m_design.GetTables().elements; }
  CAttributeInfo** GetClassAttributeInfo() const override {
    return m_design.GetTables().attributes;
  }
  void Init() override {
    properties.clear();
    if (m_init) m_init(properties);
  }

  using CXmlGeneratedClass::CleanMetaData;

 protected:
  std::u16string_view GetTargetNamespace() const override { return u""; }

 private:
  CDesign const& m_design;
  InitProperties m_init;
};

inline CDesign::~CDesign() {
  CAssembled::CleanMetaData(m_tables.classInfo, m_tables.elements, m_tables.attributes);
}

/// A row of a table of tests.
struct AssembledCase {
  char const* name;
  CDesign design;
  CAssembled::InitProperties init;
  Tolerate tolerate;
  char16_t const* document;  ///< null where the object is only written
  std::u16string outcome;
};

inline void ExpectOutcomes(std::span<AssembledCase const> rows) {
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    CSmartPtr<CAssembled> const object(new CAssembled(row.design, row.init));
    CSerializationContext const context = MakeContext(row.tolerate);
    EXPECT_EQ(row.document ? Outcome(*object, Expand(row.document), context)
                           : OutcomeOf([&] { return Written(*object, context); }),
              Expand(row.outcome));
  }
}

}  // namespace KestModel
