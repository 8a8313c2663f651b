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

using Events = std::vector<std::string>;

static_assert(std::forward_iterator<CKestIterator<CLine>>);

class Lines : public testing::Test {
 protected:
  static CSmartPtr<CLineCol> Make(std::u16string_view texts) {
    CSmartPtr<CLineCol> lines(new CLineCol(u"Line", u"urn:order", 0, -1));
    for (char16_t const text : texts) lines->Add(new CLine({text}));
    return lines;
  }

  std::u16string Texts() const {
    std::u16string texts;
    for (CLine const& line : *lines) texts += line.text;
    EXPECT_EQ(lines->GetCount(), static_cast<std::int32_t>(texts.size()));
    return texts;
  }

  CSmartPtr<CLineCol> lines = Make(u"abc");
};

TEST_F(Lines, GoWhereTheyAreAdded) {
  auto const x = [] { return new CLine(u"x"); };
  struct {
    char const* name;
    std::function<void()> add;
    char16_t const* texts;
  } const cases[] = {
      {"behind all", [&] { lines->Add(x()); }, u"abcx"},
      {"in front of all", [&] { lines->AddFirst(x()); }, u"xabc"},
      {"after the first", [&] { lines->AddAfter(lines->Item(0).Get(), x()); }, u"axbc"},
      {"after the last", [&] { lines->AddAfter(lines->Item(2).Get(), x()); }, u"abcx"},
      {"after null is in front", [&] { lines->AddAfter(nullptr, x()); }, u"xabc"},
      {"before the first", [&] { lines->AddBefore(lines->Item(0).Get(), x()); }, u"xabc"},
      {"before the last", [&] { lines->AddBefore(lines->Item(2).Get(), x()); }, u"abxc"},
      {"before null is behind", [&] { lines->AddBefore(nullptr, x()); }, u"abcx"},
      {"at the front", [&] { lines->AddAt(0, x()); }, u"xabc"},
      {"at 2", [&] { lines->AddAt(2, x()); }, u"abxc"},
      {"at the count", [&] { lines->AddAt(3, x()); }, u"abcx"},
  };
  for (auto const& [name, add, texts] : cases) {
    SCOPED_TRACE(name);
    lines = Make(u"abc");
    EventLog log;
    lines->AddEventListener(&log);
    add();
    EXPECT_EQ(Texts(), texts);
    EXPECT_EQ(log.events, (Events{"+", "+!", "~"}));
    EXPECT_EQ(log.items[0], log.items[1]);
    EXPECT_EQ(static_cast<CLine*>(static_cast<CXmlObjectBase*>(log.items[0]))->text, u"x");
    lines->RemoveEventListener(&log);
  }
}

TEST_F(Lines, AreRefusedWithoutAnEvent) {
  EventLog log;
  lines->AddEventListener(&log);
  CSmartPtr<CLine> const x(new CLine(u"x"));
  struct {
    char const* name;
    std::function<void()> operation;
    char16_t const* message;
  } const cases[] = {
      {"add below 0", [&] { lines->AddAt(-1, x.Get()); }, u"Index out of range"},
      {"add beyond the count", [&] { lines->AddAt(4, x.Get()); }, u"Index out of range"},
      {"add null", [&] { lines->Add(nullptr); },
       u"The Property [Line] is mandatory, it may node be NULL"},
      {"item below 0", [&] { lines->Item(-1); }, u"Index -1 is out of range, use 0 - 3"},
      {"item at the count", [&] { lines->Item(3); }, u"Index 3 is out of range, use 0 - 3"},
      {"remove at the count", [&] { lines->Remove(3); }, u"Index 3 is out of range, use 0 - 3"},
      {"remove a stranger", [&] { lines->RemoveLine(x.Get()); },
       u"The object was not found in the collection"},
      {"remove null", [&] { lines->RemoveLine(nullptr); },
       u"The object was not found in the collection"},
  };
  for (auto const& [name, operation, message] : cases) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Thrown<CKestInvalidParamException>(operation), message);
  }
  EXPECT_EQ(Texts(), u"abc");
  EXPECT_EQ(log.events, Events{});
  lines->RemoveEventListener(&log);
}

TEST_F(Lines, NextToAStrangerAreAnnouncedAndThenRefused) {
  EventLog log;
  lines->AddEventListener(&log);
  CSmartPtr<CLine> const stranger(new CLine(u"?"));
  auto* const x = new CLine(u"x");  // held by nobody: the failure must not end it
  auto* const y = new CLine(u"y");
  for (auto const& add : {std::function<void()>([&] { lines->AddAfter(stranger.Get(), x); }),
                          std::function<void()>([&] { lines->AddBefore(stranger.Get(), y); })}) {
    EXPECT_EQ(Thrown<CKestInvalidParamException>(add),
              u"The object was not found in the collection");
  }
  EXPECT_EQ(Texts(), u"abc");
  EXPECT_EQ(log.events, (Events{"+", "+"}));
  EXPECT_EQ(x->text + y->text, u"xy");
  lines->RemoveEventListener(&log);
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
  EventLog log;
  lines->AddEventListener(&log);
  Events const removal{"-", "-!", "~"};
  lines->Remove(1);
  EXPECT_EQ(Texts(), u"ac");
  EXPECT_EQ(log.events, removal);
  lines->Clear();
  EXPECT_EQ(Texts(), u"");
  EXPECT_EQ(log.events.size(), 9u);
  lines->Clear();
  EXPECT_EQ(log.events.size(), 9u) << "an empty collection has nothing to tell";
  lines->RemoveEventListener(&log);
}

TEST_F(Lines, TellOfTheirEndWhateverTheListenerDoes) {
  struct Difficult : EventLog {
    void OnEvent(CXmlObjectBase* from, MsgType type, void* data) override {
      CSmartPtr<CXmlObjectBase> const counted(from);
      EventLog::OnEvent(from, type, data);
      throw std::runtime_error("no");
    }
  } log;
  CSmartPtr<CLine> const kept = lines->Item(0);
  lines->AddEventListener(&log);
  lines = nullptr;
  EXPECT_EQ(log.events, (Events{"-", "-!", "~", "-", "-!", "~", "-", "-!", "~"}));
  EXPECT_EQ(kept->text, u"a");
}

TEST_F(Lines, SurviveAListenerThatCountsThem) {
  struct Counting : EventLog {
    void OnEvent(CXmlObjectBase*, MsgType, void* data) override {
      CSmartPtr<CXmlObjectBase> const counted(static_cast<CXmlObjectBase*>(data));
    }
  } listener;
  lines->AddEventListener(&listener);
  lines->Add(new CLine(u"d"));
  EXPECT_EQ(Texts(), u"abcd");
  lines->RemoveEventListener(&listener);
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
  lines = Make(u"ab");
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
  lines = Make(u"");
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
