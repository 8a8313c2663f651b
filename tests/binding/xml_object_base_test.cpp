#include "kestxml/binding/xml_object_base.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/values/smart_ptr.h"
#include "tests/model/bare_object.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

// Reaches the protected operations.
struct Reach : BareObject {
  using BareObject::DoesElementNameMatch;
  using BareObject::Throw_IfElementNameDiffers;
  using BareObject::Throw_IfPropertyIsNull;
};

TEST(ObjectCount, EndsTheObjectAtTheStepFromOneToZero) {
  bool deleted = false;
  auto* const object = new BareObject(&deleted);
  EXPECT_EQ(object->Release(), -1) << "from 0 nothing ends";
  EXPECT_EQ(object->AddRef(), 0);
  EXPECT_EQ(object->AddRef(), 1);
  EXPECT_EQ(object->AddRef(), 2);
  EXPECT_EQ(object->Release(), 1);
  EXPECT_FALSE(deleted);
  EXPECT_EQ(object->Release(), 0);
  EXPECT_TRUE(deleted);
}

TEST(ObjectCount, IsCopiedWithTheObject) {
  CSmartPtr<BareObject> const first(new BareObject);
  CSmartPtr<BareObject> const second = first;
  first->SetElementName(u"Order");
  auto* const copy = new BareObject(*first);
  auto* const assigned = new BareObject;
  *assigned = *first;
  for (auto* const object : {copy, assigned}) {
    EXPECT_EQ(object->GetElementName(), u"Order");
    EXPECT_EQ(object->AddRef(), 3);
    while (object->Release() > 0) continue;
  }
}

TEST(ObjectCount, IsSharedByThreads) {
  bool deleted = false;
  {
    CSmartPtr<BareObject> const shared(new BareObject(&deleted));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([mine = shared] {
        for (int turn = 0; turn < 10'000; ++turn) CSmartPtr<BareObject> const copy = mine;
      });
    }
    for (auto& thread : threads) thread.join();
    threads.clear();
    EXPECT_EQ(shared->AddRef(), 2) << "each thread let go of its own";
    shared->Release();
    EXPECT_FALSE(deleted);
  }
  EXPECT_TRUE(deleted);
}

TEST(PropertyGuards, RefuseNullAndOtherNames) {
  CSmartPtr<BareObject> const order(new BareObject);
  order->SetElementName(u"Order");
  EXPECT_EQ(
      Thrown<CKestInvalidParamException>([] { Reach::Throw_IfPropertyIsNull(nullptr, u"Item"); }),
      u"The Property [Item] is mandatory, it may node be NULL");
  EXPECT_EQ(Thrown<CKestInvalidParamException>(
                [&] { Reach::Throw_IfElementNameDiffers(order.Get(), u"Item"); }),
            u"This property requires an element with the name Item the element being set has the "
            u"element name Order");
  EXPECT_NO_THROW(Reach::Throw_IfPropertyIsNull(order.Get(), u"Item"));
  EXPECT_NO_THROW(Reach::Throw_IfElementNameDiffers(order.Get(), u"Order"));
  EXPECT_NO_THROW(Reach::Throw_IfElementNameDiffers(nullptr, u"Item"));
}

TEST(ElementName, IsComparedAsTheContextSays) {
  // clang-format off
  struct {
    char const* name; bool ignoreNamespaces; SchemaType schemaType;
    char16_t const* localName; char16_t const* ns; bool matches;
  } const rows[] = {
      {"Both",             false, SchemaType::XmlSchema,              u"a", u"urn:x", true},
      {"OtherName",        false, SchemaType::XmlSchema,              u"b", u"urn:x", false},
      {"OtherNamespace",   false, SchemaType::XmlSchema,              u"a", u"urn:y", false},
      {"Ignored",          true,  SchemaType::XmlSchema,              u"a", u"urn:y", true},
      {"IgnoredOtherName", true,  SchemaType::XmlSchema,              u"b", u"urn:x", false},
      {"IgnoredByType",    false, SchemaType::DocumentTypeDefinition, u"a", u"urn:y", true},
  };
  // clang-format on
  CXmlDocument document;
  document.LoadXml("<a xmlns='urn:x'/>");
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    CSerializationContext context;
    context.SetIgnoreNamespaces(row.ignoreNamespaces);
    context.SetSchemaType(row.schemaType);
    EXPECT_EQ(
        Reach::DoesElementNameMatch(context, document.GetDocumentElement(), row.localName, row.ns),
        row.matches);
  }
}

}  // namespace
}  // namespace KestXmlLib20
