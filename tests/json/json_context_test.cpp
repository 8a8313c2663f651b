// The options of JSON in the options of a call.
#include "kestxml/json/json_context.h"

#include <gtest/gtest.h>

#include "kestxml/binding/serialization_context.h"

namespace KestXmlLib20 {
namespace {

TEST(GetJsonContext, MakesItOnce) {
  CSerializationContext const context;
  CJsonContext const& defaults = context.FindJsonContext();
  EXPECT_EQ(&defaults, &CSerializationContext().FindJsonContext()) << "nothing is made";
  CJsonContext* const made = context.GetJsonContext();
  EXPECT_NE(made, &defaults);
  EXPECT_EQ(context.GetJsonContext(), made);
  EXPECT_EQ(&context.FindJsonContext(), made);
}

TEST(GetJsonContext, IsSharedByCopies) {
  CSerializationContext copy;
  {
    CSerializationContext context;
    context.GetJsonContext()->SetRootElementName(u"r");
    copy = context;
    context.GetJsonContext()->SetSupportRoundtrip(JsonRoundTrip_None);
  }
  EXPECT_EQ(copy.GetJsonContext()->GetRootElementName(), u"r");
  EXPECT_EQ(copy.GetJsonContext()->GetSupportRoundtrip(), JsonRoundTrip_None);
}

}  // namespace
}  // namespace KestXmlLib20
