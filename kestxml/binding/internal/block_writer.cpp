#include "kestxml/binding/internal/block_writer.h"

#include <string_view>
#include <utility>

#include "kestxml/binding/serialization_limits.h"
#include "kestxml/document/text_stream.h"
#include "kestxml/document/xml_text_writer.h"
#include "kestxml/document/xml_writer_context.h"

namespace KestXmlLib20::internal {
namespace {

class BlockWriter : public CXmlTextWriter {
 public:
  BlockWriter(CTextStream& stream, CXmlTextWriter const& outer, std::uint32_t maxDepth)
      : CXmlTextWriter(stream),
        m_stream(stream),
        m_outerDepth(DepthOf(outer)),
        m_maxDepth(maxDepth) {
    SetPrettyPrint(outer.GetPrettyPrint());
    SetEOLType(outer.GetEOLType());
    SetMaxDepth(0);  // this class counts the elements around the block, too
  }

  void StartElement(std::u16string_view localName, std::u16string_view uri) override {
    if (ExceedsLimit(std::uint64_t{DepthOf(*this)} + 1, m_maxDepth))
      CSerializationLimits::ThrowTooDeep(m_maxDepth, {});
    CXmlTextWriter::StartElement(localName, uri);
  }

  CTextStream& GetStream() const { return m_stream; }

 private:
  static std::uint32_t DepthOf(CXmlTextWriter const& writer) {
    auto const* const block = dynamic_cast<BlockWriter const*>(&writer);
    auto const* const element = writer.GetCurrentContext();
    return (block ? block->m_outerDepth : 0) +
           (element ? static_cast<std::uint32_t>(element->m_depth) + 1 : 0);
  }

  CTextStream& m_stream;
  std::uint32_t m_outerDepth;
  std::uint32_t m_maxDepth;
};

// Copies a finished piece of the document and ends its line: what a text writer does with a
// processing instruction is all that it takes.
void WriteLine(CXmlTextWriter& writer, std::u16string_view text) {
  writer.WriteProcessingInstruction(text);
}

// As StartElement of a child does.
void EndStartTag(CXmlTextWriter& writer) {
  auto* const element = writer.GetCurrentContext();
  if (!element) return;
  ++element->m_childCount;
  if (std::exchange(element->m_startTagOpen, false)) WriteLine(writer, u">");
}

}  // namespace

// A block inside of a block goes straight into that one's stream, so that its text is copied once
// however many blocks it lies in.
void WriteBlock(CXmlTextWriter& outer, std::uint32_t maxDepth,
                std::function<void(CXmlTextWriter& block)> const& write) {
  EndStartTag(outer);
  if (auto const* const outerBlock = dynamic_cast<BlockWriter const*>(&outer)) {
    BlockWriter block(outerBlock->GetStream(), outer, maxDepth);
    write(block);
    WriteLine(outer, {});
  } else {
    CTextStream stream(XmlEncoding_None);
    BlockWriter block(stream, outer, maxDepth);
    write(block);
    CStringBuffer& text = stream.GetBuffer();
    WriteLine(outer, {text.GetString(), text.GetLength()});
  }
}

}  // namespace KestXmlLib20::internal
