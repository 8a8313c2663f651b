#include "kestxml/collections/xml_collection.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <random>
#include <stdexcept>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/text_stream.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_text_writer.h"
#include "tests/collections/event_log.h"
#include "tests/collections/line.h"
#include "tests/model/bare_object.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

static_assert(std::forward_iterator<CKestIterator<CLine>>);

class Lines : public testing::Test {
 protected:
  void Make(std::u16string_view texts) {
    lines = new CLineCol(u"Line", u"urn:order", 0, -1);
    for (char16_t const text : texts) lines->Add(new CLine({text}));
    log = {};
    lines->AddEventListener(&log);
  }
  void SetUp() override { Make(u"abc"); }

  std::u16string Texts() const {
    std::u16string texts;
    for (CLine const& line : *lines) texts += line.text;
    EXPECT_EQ(lines->GetCount(), static_cast<std::int32_t>(texts.size()));
    return texts;
  }

  EventLog log;
  CSmartPtr<CLineCol> lines;
};

using Operation = std::function<void()>;

TEST_F(Lines, GoWhereTheyAreAdded) {
  auto const x = [] { return new CLine(u"x"); };
  auto const at = [&](std::int32_t index) { return lines->Item(index).Get(); };
  // clang-format off
  struct {
    char const* name; Operation add; char16_t const* texts;
  } const rows[] = {
      {"Append",      [&] { lines->Add(x()); },              u"abcx"},
      {"Prepend",     [&] { lines->AddFirst(x()); },         u"xabc"},
      {"AfterFirst",  [&] { lines->AddAfter(at(0), x()); },  u"axbc"},
      {"AfterLast",   [&] { lines->AddAfter(at(2), x()); },  u"abcx"},
      {"AfterNull",   [&] { lines->AddAfter(nullptr, x()); }, u"xabc"},
      {"BeforeFirst", [&] { lines->AddBefore(at(0), x()); }, u"xabc"},
      {"BeforeLast",  [&] { lines->AddBefore(at(2), x()); }, u"abxc"},
      {"BeforeNull",  [&] { lines->AddBefore(nullptr, x()); }, u"abcx"},
      {"AtFront",     [&] { lines->AddAt(0, x()); },         u"xabc"},
      {"At2",         [&] { lines->AddAt(2, x()); },         u"abxc"},
      {"AtCount",     [&] { lines->AddAt(3, x()); },         u"abcx"},
  };
  // clang-format on
  for (auto const& [name, add, texts] : rows) {
    SCOPED_TRACE(name);
    Make(u"abc");
    add();
    EXPECT_EQ(Texts(), texts);
    EXPECT_EQ(log.events, (Events{"+", "+!", "~"}));
    for (int const i : {0, 1}) {
      auto* const item = static_cast<CXmlObjectBase*>(log.items[static_cast<std::size_t>(i)]);
      EXPECT_EQ(static_cast<CLine*>(item)->text, u"x");
    }
  }
}

TEST_F(Lines, AreRefused) {
  CSmartPtr<CLine> const x(new CLine(u"x"));
  Events const none, begun{"+"};
  // clang-format off
  struct {
    char const* name; Operation operation; Events const& events; char16_t const* message;
  } const rows[] = {
      {"AddBelow0",      [&] { lines->AddAt(-1, x.Get()); },    none, u"Index out of range"},
      {"AddBeyondCount", [&] { lines->AddAt(4, x.Get()); },     none, u"Index out of range"},
      {"AddNull",        [&] { lines->Add(nullptr); },          none, u"The Property [Line] is mandatory, it may node be NULL"},
      {"ItemBelow0",     [&] { lines->Item(-1); },              none, u"Index -1 is out of range, use 0 - 3"},
      {"ItemAtCount",    [&] { lines->Item(3); },               none, u"Index 3 is out of range, use 0 - 3"},
      {"RemoveAtCount",  [&] { lines->Remove(3); },             none, u"Index 3 is out of range, use 0 - 3"},
      {"RemoveStranger", [&] { lines->RemoveLine(x.Get()); },   none, u"The object was not found in the collection"},
      {"RemoveNull",     [&] { lines->RemoveLine(nullptr); },   none, u"The object was not found in the collection"},
      {"AfterStranger",  [&] { lines->AddAfter(x.Get(), new CLine); },  begun, u"The object was not found in the collection"},
      {"BeforeStranger", [&] { lines->AddBefore(x.Get(), new CLine); }, begun, u"The object was not found in the collection"},
  };
  // clang-format on
  for (auto const& [name, operation, events, message] : rows) {
    SCOPED_TRACE(name);
    log.events.clear();
    EXPECT_EQ(Thrown<CKestInvalidParamException>(operation), message);
    EXPECT_EQ(Texts(), u"abc");
    EXPECT_EQ(log.events, events);
  }
}

TEST_F(Lines, AreNotEndedByARefusal) {
  auto* const heldByNobody = new CLine(u"x");
  CSmartPtr<CLine> const stranger(new CLine);
  EXPECT_ANY_THROW(lines->AddAfter(stranger.Get(), heldByNobody));
  EXPECT_EQ(heldByNobody->text, u"x");
}

TEST_F(Lines, AreFoundAtTheirFirstPlace) {
  CSmartPtr<CLine> const b = lines->Item(1);
  lines->Add(b.Get());
  lines->AddAfter(b.Get(), new CLine(u"x"));
  EXPECT_EQ(Texts(), u"abxcb");
  lines->RemoveLine(b.Get());
  EXPECT_EQ(Texts(), u"axcb");
}

TEST_F(Lines, AreRemovedWithThreeEventsEach) {
  lines->Remove(1);
  EXPECT_EQ(Texts(), u"ac");
  EXPECT_EQ(log.events, (Events{"-", "-!", "~"}));
  lines->Clear();
  EXPECT_EQ(Texts(), u"");
  EXPECT_EQ(log.events.size(), 9u);
  lines->Clear();
  EXPECT_EQ(log.events.size(), 9u) << "an empty collection has nothing to tell";
}

TEST_F(Lines, SurviveListenersThatCountThemAndThrowAtTheEnd) {
  struct Difficult : EventLog {
    void OnEvent(CXmlObjectBase* from, MsgType type, void* data) override {
      CSmartPtr<CXmlObjectBase> const collection(from);
      bool const isAddition = type == MsgType_CollectionAdd;
      CSmartPtr<CXmlObjectBase> const item(isAddition ? static_cast<CXmlObjectBase*>(data)
                                                      : nullptr);
      EventLog::OnEvent(from, type, data);
      if (type == MsgType_CollectionRemove) throw std::runtime_error("no");
    }
  } difficult;
  lines->AddEventListener(&difficult);
  lines->Add(new CLine(u"d"));
  EXPECT_EQ(Texts(), u"abcd");
  lines = nullptr;
  EXPECT_EQ(difficult.events.size(), 3u + 4 * 3);
  EXPECT_EQ(log.events, difficult.events);
}

// Reaches the protected operations of other objects, as an owner does.
class Owner : public BareObject {
 public:
  using BareObject::Choice_Read_Collection;
  using CXmlObjectBase::AttributesToXml_Int;
  using CXmlObjectBase::ToXml_Int;
};

TEST_F(Lines, AreReadAsThePropertyOfAChoice) {
  CSerializationContext const context;
  CXmlDocument document;
  document.LoadXml("<Order><Line>d</Line><Line>e</Line><Note/><Line>f</Line></Order>");
  CXmlElement* const order = document.GetDocumentElement();
  CXmlElement* current = order->GetFirstElement();
  std::int32_t count = 0;
  Owner::Choice_Read_Collection(lines.Get(), order, current, count, context);
  EXPECT_EQ(Texts(), u"abcde");
  EXPECT_EQ(current->GetLocalName(), u"Note");
  EXPECT_EQ(count, 1);

  current = order->GetFirstElement();
  Owner::Choice_Read_Collection(lines.Get(), order, current, count, context);
  EXPECT_EQ(Texts(), u"abcde") << "it has been read";

  count = 0;
  current = order->GetFirstElement()->GetNextSiblingElement()->GetNextSiblingElement();
  Owner::Choice_Read_Collection(lines.Get(), order, current, count, context);
  EXPECT_EQ(current->GetLocalName(), u"Note");
  EXPECT_EQ(count, 0) << "it took nothing";

  CSmartPtr<CLineCol> const single(new CLineCol(u"Line", u"", 0, 1));
  current = order->GetFirstElement();
  EXPECT_EQ(Thrown<CKestValidationException>([&] {
              Owner::Choice_Read_Collection(single.Get(), order, current, count, context);
            }),
            u"The Maximum number of [Line] elements allowed in this collection is 1");
}

TEST_F(Lines, AreWrittenInOrder) {
  CSerializationContext const context;
  CTextStream stream(XmlEncoding_None);
  CXmlTextWriter writer(stream);
  writer.SetPrettyPrint(false);
  Make(u"ab");
  writer.StartElement(u"Order", u"");
  Owner::AttributesToXml_Int(lines.Get(), &writer, context);
  Owner::ToXml_Int(lines.Get(), &writer, false, u"", context, false);
  writer.EndElement();
  EXPECT_EQ(stream.GetBuffer().ToString(),
            u"<Order length=\"i\" length=\"i\"><Line length=\"i\">a</Line>"
            u"<Line length=\"i\">b</Line></Order>");
}

// Whatever mix of operations, access by index gives what a plain list would.
TEST_F(Lines, AccessByIndexFollowsChanges) {
  Make(u"");
  std::vector<CLine*> expected;
  std::minstd_rand random(1);
  auto const below = [&](std::size_t bound) { return static_cast<std::int32_t>(random() % bound); };
  for (int turn = 0; turn < 20'000; ++turn) {
    auto const count = expected.size();
    std::int32_t const at = below(count + 1);
    switch (count == 0 ? 0 : random() % (count > 40 ? 8 : 6)) {
      case 0:
        expected.push_back(lines->Add().Get());
        break;
      case 1:
        expected.insert(expected.begin() + at, lines->AddAt(at, new CLine).Get());
        break;
      case 2:
        expected.insert(expected.begin(), new CLine);
        lines->AddFirst(expected.front());
        break;
      case 3:
      case 4:
        ASSERT_EQ(lines->Item(at % static_cast<std::int32_t>(count)).Get(),
                  expected[static_cast<std::size_t>(at) % count]);
        break;
      default:
        lines->Remove(at % static_cast<std::int32_t>(count));
        expected.erase(expected.begin() + at % static_cast<std::int32_t>(count));
    }
  }
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(lines->Item(static_cast<std::int32_t>(i)).Get(), expected[i]);
  }
}

// Quadratic work would take minutes.
TEST_F(Lines, OfAMillionAreReadWalkedAndRemovedByIndex) {
  constexpr std::int32_t kCount = 1'000'000;
  lines->RemoveEventListener(&log);
  for (std::int32_t i = lines->GetCount(); i < kCount; ++i) lines->Add();
  std::size_t length = 0;
  for (std::int32_t i = 0; i < kCount; ++i) length += lines->Item(i)->text.size();
  for (std::int32_t i = kCount - 1; i >= 0; --i) length += lines->Item(i)->text.size();
  EXPECT_EQ(length, 6u);
  for (std::int32_t i = 0; i < lines->GetCount(); ++i) lines->Remove(i);
  EXPECT_EQ(lines->GetCount(), kCount / 2);
}

}  // namespace
}  // namespace KestXmlLib20
