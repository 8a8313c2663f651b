// The classes of the model, each read, written and broken: documents in, documents or chains of
// failures out.
#include <gtest/gtest.h>

#include <span>

#include "tests/model/choices_and_alls.h"
#include "tests/model/outcome.h"

namespace KestModel {
namespace {

using MakeObject = CSmartPtr<CXmlObjectBase> (*)();
template <typename Class>
CSmartPtr<CXmlObjectBase> New() {
  return new Class;
}

struct ReadCase {
  char const* name;
  MakeObject make;
  Tolerate tolerate;
  char16_t const* document;
  char16_t const* outcome = nullptr;  ///< the document itself for null
};

void ReadAndWrite(std::span<ReadCase const> rows) {
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    CSmartPtr<CXmlObjectBase> const object = row.make();
    std::u16string const text = Expand(row.document);
    EXPECT_EQ(Outcome(*object, text, MakeContext(row.tolerate)),
              row.outcome ? Expand(row.outcome) : text);
  }
}

// clang-format off
constexpr ReadCase kCrates[] = {
    {"Whole",         New<CCrate>, nullptr, u"<Crate><Label>a b</Label><Weight>2.50</Weight><Count>7</Count><Color>blue</Color><Lining>red</Lining><Code>10</Code><Code>11</Code><Stripe>red</Stripe><Stripe>red</Stripe><Mark>m</Mark></Crate>"},
    {"Least",         New<CCrate>, nullptr, u"<Crate><Label/><Weight>1.00</Weight><Color>red</Color></Crate>"},
    {"Converted",     New<CCrate>, nullptr, u"<Crate><Label> a\n b</Label><Weight> 1 </Weight><Color>red</Color></Crate>",
                                            u"<Crate><Label>a b</Label><Weight>1.00</Weight><Color>red</Color></Crate>"},
    {"Defaults",      New<CCrate>, nullptr, u"<Crate><Label/><Weight>1.00</Weight><Count/><Color>red</Color><Lining/></Crate>"},
    {"DefaultsWritten", New<CCrate>, [](CSerializationContext& c) { c.SetWriteDefaultElementValues(true); },
                                            u"<Crate><Label/><Weight>1.00</Weight><Count/><Color>red</Color><Lining/></Crate>",
                                            u"<Crate><Label/><Weight>1.00</Weight><Count>1</Count><Color>red</Color><Lining>green</Lining></Crate>"},
    // A nil is not handed to the class.
    {"Nil",           New<CCrate>, nullptr, u"<Crate xmlns:x=XSI><Label x:nil='0'/><Weight>1.00</Weight><Count x:nil='TRUE'>7</Count><Color>red</Color><Lining x:nil='1'/></Crate>",
                                            u"<Crate><Label/><Weight>1.00</Weight><Color>red</Color></Crate>"},
    {"NilTakenBack",  New<CCrate>, nullptr, u"<Crate xmlns:x=XSI><Label/><Weight>1.00</Weight><Count x:nil='False'>7</Count><Color>red</Color></Crate>",
                                            u"<Crate><Label/><Weight>1.00</Weight><Count>7</Count><Color>red</Color></Crate>"},
    {"NotNillable",   New<CCrate>, nullptr, u"<Crate xmlns:x=XSI><Label x:nil='maybe'/></Crate>",
                                            u"Exception: Invalid use of 'nil' attribute in non-nillable element. @ /Crate/Label"},
    {"EnumNotNillable", New<CCrate>, nullptr, u"<Crate xmlns:x=XSI><Label/><Weight>1</Weight><Color x:nil='true'/></Crate>",
                                            u"Exception: Invalid use of 'nil' attribute in non-nillable element. @ /Crate/Color"},
    {"WrongNil",      New<CCrate>, nullptr, u"<Crate xmlns:x=XSI><Label/><Weight>1</Weight><Count x:nil='maybe'/></Crate>",
                                            u"Exception: Unexpected Value [maybe] for 'nil' Attribute found. @ /Crate/Count/x:@nil"},
    {"FirstMissing",  New<CCrate>, nullptr, u"<Crate/>", u"Exception: Failed to find the required child element [Label]. @ /Crate"},
    {"SecondMissing", New<CCrate>, nullptr, u"<Crate><Label/></Crate>", u"Exception: Failed to find the required child element [Weight]. @ /Crate"},
    {"EnumMissing",   New<CCrate>, nullptr, u"<Crate><Label/><Weight>1</Weight><X/></Crate>", u"Exception: Failed to find the required child element [Color]. @ /Crate"},
    {"Facet",         New<CCrate>, nullptr, u"<Crate><Label>123456789</Label></Crate>",
                                            u"Exception: Failed to set the property value. @ /Crate/Label\nException: Invalid Value for Label [123456789]."},
    {"NumberFacet",   New<CCrate>, nullptr, u"<Crate><Label/><Weight>0</Weight></Crate>",
                                            u"Exception: Failed to set the property value. @ /Crate/Weight\nException: Invalid Value for Weight [0.000000]"},
    // A failed conversion has no place of its own, so it gets that of the owner.
    {"NoNumber",      New<CCrate>, nullptr, u"<Crate><Label/><Weight>x</Weight></Crate>",
                                            u"Validation: Failed to process the element. @ /Crate\nInvalidValue: The value [x] can not be converted to a r8"},
    {"NoColor",       New<CCrate>, nullptr, u"<Crate><Label/><Weight>1</Weight><Color>pink</Color></Crate>",
                                            u"Validation: Failed to process the element. @ /Crate\nInvalidValue: Invalid Color [pink]"},
    {"ItemFacet",     New<CCrate>, nullptr, u"<Crate><Label/><Weight>1</Weight><Color>red</Color><Code>9</Code></Crate>",
                                            u"Validation: Failed to process the element. @ /Crate\nException: Invalid Value for Code [9]"},
    {"TooMany",       New<CCrate>, nullptr, u"<Crate><Label/><Weight>1</Weight><Color>red</Color><Code>10</Code><Code>10</Code><Code>10</Code></Crate>",
                                            u"Validation: Failed to process the element. @ /Crate\nValidation: The Maximum number of [Code] elements allowed in this collection is 2"},
    {"TooManyTaken",  New<CCrate>, AnyCount, u"<Crate><Label/><Weight>1.00</Weight><Color>red</Color><Code>10</Code><Code>10</Code><Code>10</Code></Crate>"},
    {"Attribute",     New<CCrate>, nullptr, u"<Crate><Label xml:lang='en'/></Crate>", u"Exception: Unexpected Attribute found. @ /Crate/Label/@lang"},
    {"AttributeTaken", New<CCrate>, UnknownAttributes, u"<Crate y='1'><Label x='1'/><Weight>1.00</Weight><Color z=''>red</Color></Crate>",
                                            u"<Crate><Label/><Weight>1.00</Weight><Color>red</Color></Crate>"},
    {"AboutTheDocument", New<CCrate>, nullptr, u"<Crate xmlns:x=XSI x:schemaLocation='a b' x:noNamespaceSchemaLocation='c' x:type='d'><Label x:type='e'/><Weight>1</Weight><Color>red</Color></Crate>",
                                            u"<Crate><Label/><Weight>1.00</Weight><Color>red</Color></Crate>"},
    {"NotAboutIt",    New<CCrate>, nullptr, u"<Crate xmlns:x='urn:x' x:schemaLocation='a b'/>", u"Exception: Unexpected Attribute found. @ /Crate/x:@schemaLocation"},
    {"OneTooMuch",    New<CCrate>, nullptr, u"<Crate><Label/><Weight>1</Weight><Color>red</Color><Stripe>red</Stripe><Label/></Crate>",
                                            u"Exception: Failed read all the elements held within the element [Crate]. The unexpected element [Label] remains unprocessed @ /Crate"},
    {"Namespace",     New<CCrate>, nullptr, u"<Crate><Label xmlns='urn:x'/></Crate>", u"Exception: Failed to find the required child element [Label]. @ /Crate"},
    {"AnyNamespace",  New<CCrate>, AnyNamespace, u"<a:Crate xmlns:a='urn:a'><Label xmlns='urn:x'/><a:Weight>1.00</a:Weight><a:Color>red</a:Color><a:Stripe>red</a:Stripe></a:Crate>",
                                            u"<Crate><Label/><Weight>1.00</Weight><Color>red</Color><Stripe>red</Stripe></Crate>"},
    {"NameIsKept",    New<CCrate>, nullptr, u"<Other><Label/><Weight>1.00</Weight><Color>red</Color></Other>"},
    {"Unknown",       New<CCrate>, UnknownElements, u"<Crate><A/><Label/><B/><C/><Weight>1</Weight><D/><Color>red</Color><Count>2</Count></Crate>",
                                            u"<Crate><Label/><Weight>1.00</Weight><Color>red</Color></Crate>"},
    // The last entry alone gets another chance.
    {"UnknownBehind", New<CCrate>, UnknownElements, u"<Crate><Label/><Weight>1</Weight><Color>red</Color><A/><Lining>red</Lining><Mark>m</Mark><B/><Mark>n</Mark></Crate>",
                                            u"<Crate><Label/><Weight>1.00</Weight><Color>red</Color><Mark>m</Mark><Mark>n</Mark></Crate>"},
    {"UnknownOnly",   New<CCrate>, UnknownElements, u"<Crate><A/></Crate>", u"Exception: Failed to find the required child element [Label]. @ /Crate"},
    {"Missing",       New<CCrate>, MissingElements, u"<Crate><Weight>1</Weight></Crate>", u"<Crate><Label/><Weight>1.00</Weight><Color>red</Color></Crate>"},
};

constexpr ReadCase kParts[] = {
    {"Tag",           New<CTag>, nullptr, u"<Tag id='1' tint='blue' size='2.5'>7</Tag>"},
    {"TagConverted",  New<CTag>, nullptr, u"<Tag id=' 1 ' size='2'> 7 </Tag>", u"<Tag id='1' size='2.0'>7</Tag>"},
    {"TagDefaults",   New<CTag>, nullptr, u"<Tag id='1' tint='red' size='1.5'>7</Tag>"},
    {"TagWithoutDefaults", New<CTag>, [](CSerializationContext& c) { c.SetNoOptionalAttributeDefaultOutput(true); },
                                          u"<Tag id='1' tint='red' size='1.5'>7</Tag>", u"<Tag id='1'>7</Tag>"},
    {"TagNil",        New<CTag>, nullptr, u"<Tag xmlns:x=XSI id='1' x:nil='1'><X/></Tag>", u"<Tag id='1' xmlns:AA=XSI AA:nil='true'/>"},
    {"TagNotNil",     New<CTag>, nullptr, u"<Tag xmlns:x=XSI id='1' x:nil='False'>7</Tag>", u"<Tag id='1'>7</Tag>"},
    {"TagWrongNil",   New<CTag>, nullptr, u"<Tag xmlns:x=XSI id='1' x:nil=''/>", u"Exception: Unexpected Value [] for 'nil' Attribute found. @ /Tag/x:@nil"},
    {"NoteNotNillable", New<CNote>, nullptr, u"<Note xmlns:x=XSI x:nil='false'/>", u"Exception: Invalid use of 'nil' attribute in non-nillable element. @ /Note"},
    {"TagWithoutId",  New<CTag>, nullptr, u"<Tag>7</Tag>",
                                          u"Validation: Failed to process the element. @ /Tag\nValidation: Failed to find the required Attribute [id]."},
    {"TagWithoutIdTolerated", New<CTag>, [](CSerializationContext& c) { UnknownAttributes(c); MissingElements(c); }, u"<Tag>7</Tag>",
                                          u"Validation: Failed to process the element. @ /Tag\nValidation: Failed to find the required Attribute [id]."},
    {"TagIdFacet",    New<CTag>, nullptr, u"<Tag id='0'>7</Tag>", u"Exception: Failed to set the property value [0]. @ /Tag/@id\nException: Invalid Value for id [0]"},
    {"TagIdNoNumber", New<CTag>, nullptr, u"<Tag id='x'>7</Tag>", u"Validation: Failed to process the element. @ /Tag\nInvalidValue: The value [x] can not be converted to a i4"},
    {"TagTintNoColor", New<CTag>, nullptr, u"<Tag id='1' tint='pink'>7</Tag>", u"Validation: Failed to process the element. @ /Tag\nInvalidValue: Invalid Color [pink]"},
    {"TagNoNumber",   New<CTag>, nullptr, u"<Tag id='1'>x</Tag>", u"Validation: Failed to process the element. @ /Tag\nInvalidValue: The value [x] can not be converted to a i4"},
    {"TagUnknownAttribute", New<CTag>, nullptr, u"<Tag id='1' x='1'>7</Tag>", u"Exception: Unexpected Attribute found. @ /Tag/@x"},
    {"TagChild",      New<CTag>, nullptr, u"<Tag id='1'>7<X/></Tag>",
                                          u"Exception: Failed read all the elements held within the element [Tag]. The unexpected element [X] remains unprocessed @ /Tag"},
    {"TagChildTaken", New<CTag>, UnknownElements, u"<Tag id='1'>7<X/><Y/></Tag>", u"<Tag id='1'>7</Tag>"},
    // Ignoring namespaces has no effect on attributes of simple types.
    {"EnumInNamespace", New<CTag>, AnyNamespace, u"<Tag xmlns:x='urn:x' id='1' x:tint='blue'>7</Tag>", u"<Tag id='1' tint='blue'>7</Tag>"},
    {"EnumElsewhere", New<CTag>, nullptr, u"<Tag xmlns:x='urn:x' id='1' x:tint='blue'>7</Tag>", u"Exception: Unexpected Attribute found. @ /Tag/x:@tint"},
    {"IdInNamespace", New<CTag>, AnyNamespace, u"<Tag xmlns:x='urn:x' x:id='1'>7</Tag>", u"Exception: Unexpected Attribute found. @ /Tag/x:@id"},
    {"Note",          New<CNote>, nullptr, u"<Note lang='en'> any  text </Note>"},
    {"NoteAttribute", New<CNote>, nullptr, u"<Note x='1'>n</Note>", u"<Note>n</Note>"},
    {"NoteFacet",     New<CNote>, nullptr, u"<Note lang='EN'/>", u"Exception: Failed to set the property value [EN]. @ /Note/@lang\nException: Invalid Value for lang [EN]."},
    {"Square",        New<CSquare>, nullptr, u"<AA:Square xmlns:AA='urn:shapes'><AA:Name>c</AA:Name><AA:Side>2</AA:Side></AA:Square>"},
    {"SquareOfADtd",  New<CSquare>, [](CSerializationContext& c) { c.SetSchemaType(SchemaType::DocumentTypeDefinition); },
                                          u"<Square><Side>2</Side></Square>",
                                          u"<AA:Square xmlns:AA='urn:shapes'><AA:Side>2</AA:Side></AA:Square>"},
};

constexpr ReadCase kBoxes[] = {
    {"Whole",         New<CBox>, nullptr, u"<Box><Tag id='1'>5</Tag><Note>n</Note><Part>p</Part><Part lang='en'>q</Part>"
                                          u"<AA:Shape xmlns:AA='urn:shapes' xmlns:AB=XSI AB:type='AA:Square'><AA:Name>c</AA:Name><AA:Side>2</AA:Side></AA:Shape>"
                                          u"<AA:Inner xmlns:AA='urn:shapes' xmlns:AB=XSI AB:type='AA:Square'><AA:Side>2</AA:Side></AA:Inner>"
                                          u"<AA:Extra xmlns:AA='urn:shapes' xmlns:AB=XSI AB:type='AA:Square'><AA:Side>2</AA:Side></AA:Extra>"
                                          u"<AA:Extra xmlns:AA='urn:shapes' xmlns:AB=XSI AB:type='AA:Square'><AA:Side>3</AA:Side></AA:Extra></Box>"},
    {"Least",         New<CBox>, nullptr, u"<Box><Tag id='1'>5</Tag><s:Shape xmlns:s='urn:shapes' xmlns:x=XSI x:type='s:Square'><s:Side>2</s:Side></s:Shape></Box>",
                                          u"<Box><Tag id='1'>5</Tag><AA:Shape xmlns:AA='urn:shapes' xmlns:AB=XSI AB:type='AA:Square'><AA:Side>2</AA:Side></AA:Shape></Box>"},
    // A type without a prefix, or with one that is not declared, is in the namespace of the element.
    {"TypeWithoutPrefix", New<CBox>, [](CSerializationContext& c) { c.SetWriteTypeAttribute(false); },
                                          u"<Box><Tag id='1'>5</Tag><Shape xmlns='urn:shapes' xmlns:x=XSI x:type='Square'><Side>2</Side></Shape></Box>",
                                          u"<Box><Tag id='1'>5</Tag><AA:Shape xmlns:AA='urn:shapes'><AA:Side>2</AA:Side></AA:Shape></Box>"},
    {"TypeWithUnknownPrefix", New<CBox>, [](CSerializationContext& c) { c.SetWriteTypeAttribute(false); },
                                          u"<Box><Tag id='1'>5</Tag><Shape xmlns='urn:shapes' xmlns:x=XSI x:type='u:Square'><Side>2</Side></Shape></Box>",
                                          u"<Box><Tag id='1'>5</Tag><AA:Shape xmlns:AA='urn:shapes'><AA:Side>2</AA:Side></AA:Shape></Box>"},
    {"TagMissing",    New<CBox>, nullptr, u"<Box><Note/></Box>", u"Exception: Failed to find the required child element [Tag]. @ /Box"},
    {"ShapeMissing",  New<CBox>, nullptr, u"<Box><Tag id='1'>5</Tag></Box>", u"Exception: Failed to find a suitable substitution element for [Shape]. @ /Box"},
    // What the context tolerates does not count for a substitution.
    {"ShapeMissingTolerated", New<CBox>, MissingElements, u"<Box/>", u"Exception: Failed to find a suitable substitution element for [Shape]. @ /Box"},
    {"ShapeBehindUnknown", New<CBox>, UnknownElements, u"<Box><X/><Tag id='1'>5</Tag><X/><s:Shape xmlns:s='urn:shapes' xmlns:x=XSI x:type='s:Square'/></Box>",
                                          u"Exception: Failed to find a suitable substitution element for [Shape]. @ /Box"},
    // An optional element that the factory can't place is left, and so unexpected later.
    {"InnerUnplaced", New<CBox>, nullptr, u"<Box><Tag id='1'>5</Tag><s:Shape xmlns:s='urn:shapes' xmlns:x=XSI x:type='s:Square'><s:Side>2</s:Side></s:Shape><s:Inner xmlns:s='urn:shapes'/></Box>",
                                          u"Exception: Failed read all the elements held within the element [Box]. The unexpected element [Inner] remains unprocessed @ /Box"},
    {"TooManyParts",  New<CBox>, nullptr, u"<Box><Tag id='1'>5</Tag><Part/><Part/><Part/></Box>",
                                          u"Validation: Failed to process the element. @ /Box\nValidation: The Maximum number of [Part] elements allowed in this collection is 2"},
    // The innermost level names the place; levels above it pass the failure on as the base class.
    {"DeepFacet",     New<CBox>, nullptr, u"<Box><Tag id='1'>5</Tag><Part/><Part lang='EN'/></Box>",
                                          u"Exception: Failed to set the property value [EN]. @ /Box/Part[2]/@lang\nException: Invalid Value for lang [EN]."},
    {"DeepNoNumber",  New<CBox>, nullptr, u"<Box><Tag id='x'>5</Tag></Box>",
                                          u"Exception: Failed to process the element. @ /Box/Tag\nInvalidValue: The value [x] can not be converted to a i4"},
    {"DeepUnknown",   New<CBox>, nullptr, u"<Box><Tag id='1'>5</Tag><s:Shape xmlns:s='urn:shapes' xmlns:x=XSI x:type='s:Square'><s:Side>2</s:Side><X/></s:Shape></Box>",
                                          u"Exception: Failed read all the elements held within the element [Shape]. The unexpected element [X] remains unprocessed @ /Box/s:Shape"},
};

constexpr ReadCase kEnvelopes[] = {
    {"Whole",         New<CEnvelope>, nullptr, u"<Envelope id='1' xmlns:AA='urn:x' AA:a='2' AA:b='3'><Head c='4'><d>5</d></Head><AA:Any/><Item/><Item>6</Item><AA:Item/><e/></Envelope>"},
    {"Least",         New<CEnvelope>, nullptr, u"<Envelope><Head/></Envelope>"},
    {"AnyNamespaceOfHead", New<CEnvelope>, nullptr, u"<Envelope><AA:Head xmlns:AA='urn:x'/></Envelope>"},
    {"HeadMissing",   New<CEnvelope>, nullptr, u"<Envelope/>", u"Exception: Failed to find the required child element [Head]. @ /Envelope"},
    {"OtherHead",     New<CEnvelope>, nullptr, u"<Envelope><X/></Envelope>", u"Exception: Failed to find the required element from namespace [urn:head]. @ /Envelope"},
    {"OtherHeadTolerated", New<CEnvelope>, MissingElements, u"<Envelope><X/></Envelope>", u"Exception: Failed to find the required element from namespace [urn:head]. @ /Envelope"},
    {"AttributeOfNoNamespace", New<CEnvelope>, nullptr, u"<Envelope a='1'><Head/></Envelope>", u"Exception: Unexpected Attribute found. @ /Envelope/@a"},
    {"TooManyItems",  New<CEnvelope>, nullptr, u"<Envelope><Head/><Item/><Item/><Item/></Envelope>",
                                               u"Validation: Failed to process the element. @ /Envelope\nValidation: The Maximum number of [] elements allowed in this collection is 2"},
};

constexpr ReadCase kRoutes[] = {
    {"Whole",         New<CRoute>, nullptr, u"<Route unit='km' gauge='w'><From>a</From><Rail>1</Rail><To>b</To><Road>red</Road></Route>"},
    {"TwoLegs",       New<CRoute>, nullptr, u"<Route unit='km'><From>a</From><To>b</To><Road>red</Road><Rail>2</Rail></Route>"},
    {"Empty",         New<CRoute>, nullptr, u"<Route/>", u"Exception: Failed to find the required child element [Span]. @ /Route"},
    {"HalfASpan",     New<CRoute>, nullptr, u"<Route><From>a</From><Rail>1</Rail></Route>", u"Exception: Failed to find the required child element [Span]. @ /Route"},
    {"Unknown",       New<CRoute>, nullptr, u"<Route><From>a</From><X/><To>b</To></Route>", u"Exception: Failed to find the required child element [Span]. @ /Route"},
    {"UnknownTaken",  New<CRoute>, UnknownElements, u"<Route><X/><From>a</From><X/><To>b</To><X/><Rail>1</Rail><X/></Route>",
                                            u"<Route><From>a</From><To>b</To><Rail>1</Rail></Route>"},
    {"Behind",        New<CRoute>, nullptr, u"<Route><From>a</From><To>b</To><X/></Route>",
                                            u"Exception: Failed read all the elements held within the element [Route]. The unexpected element [X] remains unprocessed @ /Route"},
    {"DeepNoNumber",  New<CRoute>, nullptr, u"<Route><From>a</From><Rail>x</Rail><To>b</To></Route>",
                                            u"Exception: Failed to process the element. @ /Route\nInvalidValue: The value [x] can not be converted to a i4"},
};

constexpr ReadCase kPicks[] = {
    {"Number",        New<CPick>, nullptr, u"<Pick><Number>1</Number></Pick>"},
    {"Color",         New<CPick>, nullptr, u"<Pick><Color>red</Color></Pick>"},
    {"Note",          New<CPick>, nullptr, u"<Pick><Note lang='en'>n</Note></Pick>"},
    {"Shape",         New<CPick>, nullptr, u"<Pick><AA:Shape xmlns:AA='urn:shapes' xmlns:AB=XSI AB:type='AA:Square'><AA:Side>2</AA:Side></AA:Shape></Pick>"},
    {"Other",         New<CPick>, nullptr, u"<Pick><Other a='1'><b/></Other></Pick>"},
    {"None",          New<CPick>, nullptr, u"<Pick/>"},
    {"NilIsNone",     New<CPick>, nullptr, u"<Pick><Number x:nil='true' xmlns:x=XSI>1</Number></Pick>", u"<Pick/>"},
    {"Two",           New<CPick>, nullptr, u"<Pick><Number>1</Number><Color>red</Color></Pick>",
                                           u"Exception: Failed read all the elements held within the element [Pick]. The unexpected element [Color] remains unprocessed @ /Pick"},
    {"NoMember",      New<CPick>, nullptr, u"<Pick><X/></Pick>",
                                           u"Exception: Failed read all the elements held within the element [Pick]. The unexpected element [X] remains unprocessed @ /Pick"},
    {"ShapeUnplaced", New<CPick>, nullptr, u"<Pick><s:Shape xmlns:s='urn:shapes'/></Pick>",
                                           u"Exception: Failed read all the elements held within the element [Pick]. The unexpected element [Shape] remains unprocessed @ /Pick"},
    {"Facet",         New<CPick>, nullptr, u"<Pick><Number>100</Number></Pick>",
                                           u"Exception: Failed to set the property value. @ /Pick/Number\nException: Invalid Value for Number [100]"},
    {"Unknown",       New<CPick>, UnknownElements, u"<Pick><X/><Note>n</Note><Number>1</Number></Pick>", u"<Pick><Note>n</Note></Pick>"},
    {"UnknownOnly",   New<CPick>, UnknownElements, u"<Pick><X/></Pick>", u"<Pick/>"},
};

constexpr ReadCase kHeaps[] = {
    {"Numbers",       New<CHeap>, nullptr, u"<Heap><Number>1</Number><Number>2</Number></Heap>"},
    {"Colors",        New<CHeap>, nullptr, u"<Heap><Color>red</Color><Color>red</Color></Heap>"},
    {"Notes",         New<CHeap>, nullptr, u"<Heap><Note>n</Note></Heap>"},
    {"Shapes",        New<CHeap>, nullptr, u"<Heap><AA:Shape xmlns:AA='urn:shapes' xmlns:AB=XSI AB:type='AA:Square'><AA:Side>2</AA:Side></AA:Shape></Heap>"},
    {"Words",         New<CHeap>, nullptr, u"<Heap><Word>w</Word></Heap>"},
    {"Others",        New<CHeap>, nullptr, u"<Heap><AA:Other xmlns:AA='urn:x'/><AA:Other xmlns:AA='urn:x'/></Heap>"},
    {"None",          New<CHeap>, nullptr, u"<Heap/>",
                                           u"Exception: No child elements within the element [Heap] were populated. The element represents a choice, so one and only one element should be populated. The element contained no sutable child elements @ /Heap"},
    {"NoMember",      New<CHeap>, nullptr, u"<Heap><X/></Heap>",
                                           u"Exception: No child elements within the element [Heap] were populated. The element represents a choice, so one and only one element should be populated. The element contained no sutable child elements @ /Heap"},
    {"NoneTaken",     New<CHeap>, MissingChoice, u"<Heap/>"},
    {"NoMemberTaken", New<CHeap>, MissingChoice, u"<Heap><X/></Heap>",
                                           u"Exception: Failed read all the elements held within the element [Heap]. The unexpected element [X] remains unprocessed @ /Heap"},
    {"TooFew",        New<CHeap>, nullptr, u"<Heap><Number>1</Number></Heap>",
                                           u"Validation: Failed to process the element. @ /Heap\nValidation: The Minimum number of [Number] elements allowed in this collection is 2"},
    {"TooFewTaken",   New<CHeap>, AnyCount, u"<Heap><Number>1</Number></Heap>"},
    {"Two",           New<CHeap>, nullptr, u"<Heap><Word>w</Word><Note>n</Note></Heap>",
                                           u"Exception: Failed read all the elements held within the element [Heap]. The unexpected element [Note] remains unprocessed @ /Heap"},
};

constexpr char16_t kMissingNumber[] = u"Validation: Failed to process the element. @ /Form\nValidation: Failed to find the mandatory element [Number].";

constexpr ReadCase kForms[] = {
    {"Whole",         New<CForm>, nullptr, u"<Form><Number>1</Number><Text>t</Text><Color>blue</Color><Lining>red</Lining><Tag id='1'>5</Tag><Note>n</Note>"
                                           u"<AA:Shape xmlns:AA='urn:shapes' xmlns:AB=XSI AB:type='AA:Square'><AA:Side>2</AA:Side></AA:Shape>"
                                           u"<AA:Inner xmlns:AA='urn:shapes' xmlns:AB=XSI AB:type='AA:Square'><AA:Side>3</AA:Side></AA:Inner><Head a='1'/><Foot>f</Foot></Form>"},
    {"AnyOrder",      New<CForm>, nullptr, u"<Form><Foot>f</Foot><Head/><s:Shape xmlns:s='urn:shapes' xmlns:x=XSI x:type='s:Square'><s:Side>2</s:Side></s:Shape><Tag id='1'>5</Tag><Number>1</Number><Color>red</Color></Form>",
                                           u"<Form><Number>1</Number><Color>red</Color><Tag id='1'>5</Tag><AA:Shape xmlns:AA='urn:shapes' xmlns:AB=XSI AB:type='AA:Square'><AA:Side>2</AA:Side></AA:Shape><Head/><Foot>f</Foot></Form>"},
    {"Twice",         New<CForm>, nullptr, u"<Form><Number>1</Number><Color>red</Color><Number>1</Number></Form>",
                                           u"Exception: Failed read all the elements held within the element [Form]. The unexpected element [Number] remains unprocessed @ /Form"},
    {"ShapeUnplaced", New<CForm>, nullptr, u"<Form><s:Shape xmlns:s='urn:shapes'/></Form>",
                                           u"Exception: Failed read all the elements held within the element [Form]. The unexpected element [Shape] remains unprocessed @ /Form"},
    {"NumberMissing", New<CForm>, nullptr, u"<Form/>", kMissingNumber},
    {"NumberMissingTolerated", New<CForm>, MissingElements, u"<Form/>", kMissingNumber},
    {"NumberNeverCame", New<CForm>, UnknownElements, u"<Form><X/></Form>", kMissingNumber},
    {"ColorMissing",  New<CForm>, nullptr, u"<Form><Number>1</Number></Form>", u"Validation: Failed to process the element. @ /Form\nValidation: Failed to find the mandatory element [Color]."},
    {"TagMissing",    New<CForm>, nullptr, u"<Form><Number>1</Number><Color>red</Color></Form>", u"Validation: Failed to process the element. @ /Form\nValidation: Failed to find the mandatory element [Tag]."},
    {"ShapeMissing",  New<CForm>, nullptr, u"<Form><Number>1</Number><Color>red</Color><Tag id='1'>5</Tag></Form>", u"Validation: Failed to process the element. @ /Form\nValidation: Failed to find the mandatory element [Shape]."},
    {"HeadMissing",   New<CForm>, nullptr, u"<Form><Number>1</Number><Color>red</Color><Tag id='1'>5</Tag><s:Shape xmlns:s='urn:shapes' xmlns:x=XSI x:type='s:Square'><s:Side>2</s:Side></s:Shape></Form>",
                                           u"Validation: Failed to process the element. @ /Form\nValidation: Failed to find the mandatory element [Head]."},
};
// clang-format on

TEST(GeneratedClass, OfSimpleTypes) {
  ReadAndWrite(kCrates);
}
TEST(GeneratedClass, OfSimpleContent) {
  ReadAndWrite(kParts);
}
TEST(GeneratedClass, OfObjects) {
  ReadAndWrite(kBoxes);
}
TEST(GeneratedClass, OfOpenContent) {
  ReadAndWrite(kEnvelopes);
}
TEST(GeneratedClass, OfGroups) {
  ReadAndWrite(kRoutes);
}
TEST(GeneratedClass, WithAChoice) {
  ReadAndWrite(kPicks);
}
TEST(GeneratedClass, WithAChoiceOfCollections) {
  ReadAndWrite(kHeaps);
}
TEST(GeneratedClass, WithAnAllGroup) {
  ReadAndWrite(kForms);
}

}  // namespace
}  // namespace KestModel
